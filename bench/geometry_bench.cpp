#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "3d/segment.h"

#include <benchmark/benchmark.h>

// The geometry that every frame runs over all pairs of objects and all visible models.

namespace {

Matrix4 turnedFrame() {
    return Matrix4(Point4(120, -35, 900, 1), Vector4(0.6f, 0, 0.8f, 1), Vector4(0, 1, 0, 1));
}

BoundingBox shipBox(float x) {
    BoundingBox box(Point4(), Vector4(4, 0, 0, 1), Vector4(0, 2, 0, 1), Vector4(0, 0, 9, 1));
    box.transform(Point4(x, 0, 0, 1), Vector4(0.6f, 0, 0.8f, 1), Vector4(0, 1, 0, 1));
    return box;
}

void matrixProduct(benchmark::State& state) {
    Matrix4 left = turnedFrame();
    const Matrix4 right = Matrix4(MATRIX_UNIT).rotate(0.1f, 0.2f, 0.3f);
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(left * right);
    }
}
BENCHMARK(matrixProduct);

void matrixInverse(benchmark::State& state) {
    const Matrix4 frame = turnedFrame();
    for (auto _ : state) {
        Matrix4 inverse = frame;
        benchmark::DoNotOptimize(inverse.invert());
    }
}
BENCHMARK(matrixInverse);

void boxTransform(benchmark::State& state) {
    const BoundingBox model = shipBox(0);
    for (auto _ : state) {
        BoundingBox box = model;
        box.transform(Point4(50, 0, 7, 1), Vector4(0, 0.6f, 0.8f, 1), Vector4(1, 0, 0, 1));
        benchmark::DoNotOptimize(box);
    }
}
BENCHMARK(boxTransform);

/// One test between two volumes, once near each other and once far apart.
template <typename Volume, typename Other>
void test(benchmark::State& state, const Volume& volume, const Other& other) {
    for (auto _ : state) benchmark::DoNotOptimize(volume.isIntersected(other));
}

const BoundingSphere planet(Point4(), 12);
const BoundingSphere near_planet(Point4(15, 0, 0, 1), 12);
const BoundingSphere far_planet(Point4(500, 0, 0, 1), 12);

BENCHMARK_CAPTURE(test, box_point, shipBox(0), Point4(1, 1, 1, 1));
BENCHMARK_CAPTURE(test, box_near_box, shipBox(0), shipBox(5));
BENCHMARK_CAPTURE(test, box_far_box, shipBox(0), shipBox(500));
BENCHMARK_CAPTURE(test, box_near_sphere, shipBox(0), near_planet);
BENCHMARK_CAPTURE(test, box_far_sphere, shipBox(0), far_planet);
BENCHMARK_CAPTURE(test, sphere_near_sphere, planet, near_planet);
BENCHMARK_CAPTURE(test, sphere_segment, planet, Segment(Point4(-50, 3, 0, 1), Point4(50, 3, 0, 1)));

void pickSphere(benchmark::State& state) {
    const Point4 eye(-50, 3, 0, 1);
    const Point4 end(50, 3, 0, 1);
    for (auto _ : state) benchmark::DoNotOptimize(planet.isIntersected(eye, end));
}
BENCHMARK(pickSphere);

}  // namespace
