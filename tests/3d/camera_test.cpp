#include "3d/camera.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

namespace {

/// At (0, 0, 10), looking along -z with a view twice as wide as high: at the origin it reaches
/// 5.77 up and down and 11.55 to the sides; near and far plane stand at z = 9 and z = -990.
Camera lookingDown() {
    window();
    Camera camera(Point4(0, 0, 10, 1));
    camera.setAspectRatio(2);
    camera.activate();
    return camera;
}

BoundingBox cube(const Point4& center, float r) {
    return {center, {r, 0, 0, 1}, {0, r, 0, 1}, {0, 0, r, 1}};
}

}  // namespace

TEST(Frustum, EndsAtSixPlanes) {
    const Frustum frustum = lookingDown().getFrustum();
    for (const Vector4& edge :
         {Vector4(0, 0, 9, 1), Vector4(0, 0, -990, 1), Vector4(0, 5.77f, 0, 1),
          Vector4(0, -5.77f, 0, 1), Vector4(11.55f, 0, 0, 1), Vector4(-11.55f, 0, 0, 1)}) {
        EXPECT_TRUE(frustum.isInside(edge * 0.99f)) << edge;
        EXPECT_FALSE(frustum.isInside(edge * 1.01f)) << edge;
    }
}

// A sphere disappears when it has left a plane, a box when its last corner has left the view.
TEST(Frustum, BoxesAndSpheres) {
    const Frustum frustum = lookingDown().getFrustum();
    EXPECT_FALSE(frustum.isVisible(cube({0, 0, 10, 1}, 2000))) << "all corners out of view";
    for (int corner = 0; corner < 8; ++corner) {
        const Vector4 side(corner & 1 ? 1 : -1, corner & 2 ? 1 : -1, corner & 4 ? 1 : -1, 1);
        EXPECT_TRUE(frustum.isVisible(cube(Point4(0, 0, -100, 1) - side * 600, 600))) << side;
    }
    for (const Point4& center :
         {Point4(0, 0, 12, 1), Point4(0, 0, -993, 1), Point4(0, 9.238f, 0, 1)}) {
        EXPECT_TRUE(frustum.isVisible(BoundingSphere(center, 3.01f))) << center;
        EXPECT_FALSE(frustum.isVisible(BoundingSphere(center, 2.99f))) << center;
    }
}
