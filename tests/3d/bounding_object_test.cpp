#include "3d/bounding_object.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "tests/support/geometry.h"

namespace {

BoundingBox cube(float half, const Point4& center = Point4()) {
    return {center, direction(half, 0, 0), direction(0, half, 0), direction(0, 0, half)};
}

TEST(BoundingSphere, SurfacesCountForPointsButNotForOthers) {
    const BoundingSphere sphere(Point4(), 2);
    EXPECT_TRUE(sphere.isIntersected(place(2, 0, 0)));
    EXPECT_FALSE(sphere.isIntersected(place(2.01f, 0, 0)));
    EXPECT_FALSE(sphere.isIntersected(BoundingSphere(place(0, 3, 0), 1)));
    EXPECT_TRUE(sphere.isIntersected(BoundingSphere(place(0, 2.999f, 0), 1)));
}

// Picking looks at the ends first, and nowhere beyond them.
TEST(BoundingSphere, IsPickedAlongALine) {
    const BoundingSphere sphere(place(0, 0, 1), 2);
    for (const auto& [start, end, picked] : {std::tuple{place(4, 3, 4), place(-4, -2, -2), true},
                                             {place(-5, 2.1f, 1), place(5, 2.1f, 1), false},
                                             {place(3, 1, 1), place(8, 1, 1), false},
                                             {place(0, 1, -7), place(0, 1, -2), false},
                                             {place(-5, 0, 1), place(-1, 0, 1), true},
                                             {place(0, 0, 1), place(0, 0, 9), true},
                                             {place(3, 0, 1), place(3, 0, 1), false}})
        EXPECT_EQ(sphere.isIntersected(start, end), picked) << start << end;
}

// The box is compared with the same test in its own coordinates.
TEST(BoundingBox, TellsTheTruthWhereverItWasMoved) {
    const Point4 middle = place(0, 0, 5);
    const BoundingBox model(middle, direction(1, 0, 0), direction(0, 2, 0), direction(0, 0, 3));
    ASSERT_TRUE(model.isIntersected(middle));  // so that each copy starts with planes that stand
    const Point4 there = place(100, -20, 5);
    const Matrix4 frame(there, direction(0.6f, 0, 0.8f), direction(0, 1, 0));
    BoundingBox flown = model;
    flown.transform(there, direction(3, 0, 4), direction(0, 7, 0));
    BoundingBox placed = model;
    placed.setCenter(there);

    for (float x : {-1.1f, -0.9f, 0.9f, 1.1f}) {
        for (float y : {-2.1f, -1.9f, 1.9f, 2.1f}) {
            for (float z : {-3.1f, 0.f, 2.9f, 3.1f}) {
                const Vector4 p = direction(x, y, z);
                const bool inside = std::fabs(x) < 1 && std::fabs(y) < 2 && std::fabs(z) < 3;
                EXPECT_EQ(flown.isIntersected(frame ^ (middle + p)), inside) << p;
                EXPECT_EQ(placed.isIntersected(there + p), inside) << p;
            }
        }
    }
}

TEST(BoundingBox, SpheresCountByCornersAndCentre) {
    for (int corner = 0; corner < 8; ++corner) {
        const auto side = [&](int bit) { return corner & bit ? 1.5f : -1.5f; };
        const BoundingSphere sphere(place(side(1), side(2), side(4)), 0.9f);
        EXPECT_TRUE(cube(1).isIntersected(sphere)) << sphere;
        EXPECT_TRUE(sphere.isIntersected(cube(1))) << sphere;
    }
    EXPECT_FALSE(cube(1).isIntersected(BoundingSphere(place(1.2f, 0, 0), 0.5f))) << "a face";
    EXPECT_TRUE(cube(1).isIntersected(BoundingSphere(place(0.5f, 0, 0), 0.1f)));
}

TEST(BoundingBox, BoxesCountGenerouslyAndFromTheirOwnAxes) {
    EXPECT_FALSE(cube(1).isIntersected(cube(1, place(3.5f, 0, 0))));
    EXPECT_TRUE(cube(1).isIntersected(cube(1, place(3.4f, 0, 0))));
    EXPECT_FALSE(cube(10).isIntersected(cube(0.1f, place(2, 2, 2))));
    EXPECT_TRUE(cube(0.1f, place(2, 2, 2)).isIntersected(cube(10)));
    for (const Point4& near : {place(1.03f, 2, 2), place(2, 1.03f, 2), place(2, 2, -1.03f)})
        EXPECT_TRUE(cube(10).isIntersected(cube(0.1f, near))) << "one axis is enough: " << near;
}

TEST(BoundingBox, GrowsAlongTheWorldsAxes) {
    BoundingBox box(place(15, 0, 0), direction(0, -1, -1), direction(0, -1, 1),
                    direction(-2, 0, 0));
    EXPECT_TRUE(box.isIntersected(place(15, 0, 0)));
    box += cube(0.5f, place(10, -4, 0));
    EXPECT_THAT(box.getCenter(), IsNear(13.25f, -1.25f, 0, 1));
    EXPECT_THAT((std::array{box.getVX(), box.getVY(), box.getVZ()}),
                testing::ElementsAre(3.75f, 3.25f, 2));
    EXPECT_TRUE(box.isIntersected(place(9.6f, -4.4f, -1.9f)));
}

}  // namespace
