#include "3d/bounding_object.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "3d/segment.h"
#include "tests/support/failure.h"
#include "tests/support/geometry.h"

#include <sstream>

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
    EXPECT_TRUE(sphere.isIntersected(Plane(0, 0, 1, -900))) << "the outside counts";
    EXPECT_FALSE(sphere.isIntersected(Plane(0, 0, 1, 2)));
}

// Picking looks at the ends first; the segment test only at the nearest point of the line.
TEST(BoundingSphere, TwoTestsAlongALine) {
    const BoundingSphere sphere(place(0, 0, 1), 2);
    struct Case {
        Point4 start, end;
        bool picked, crossed;
    };
    for (const auto& [start, end, picked, crossed] :
         {Case{place(4, 3, 4), place(-4, -2, -2), true, true},
          Case{place(-5, 2.1f, 1), place(5, 2.1f, 1), false, false},
          Case{place(3, 1, 1), place(8, 1, 1), false, false},
          Case{place(0, 1, -7), place(0, 1, -2), false, false},
          Case{place(-5, 0, 1), place(-1, 0, 1), true, false},
          Case{place(0, 0, 1), place(0, 0, 9), true, true},
          Case{place(3, 0, 1), place(3, 0, 1), false, false}}) {
        EXPECT_EQ(sphere.isIntersected(start, end), picked) << start << end;
        EXPECT_EQ(sphere.isIntersected(Segment(start, end)), crossed) << start << end;
    }
}

TEST(BoundingObject, CopiesOnlyItsOwnKind) {
    EXPECT_EQ(failureOf([] { BoundingSphere{BoundingBox()}; }),
              "BoundingSphere::BoundingSphere: argument 1 not a BoundingSphere");
    EXPECT_EQ(failureOf([] { BoundingBox{BoundingSphere(Point4(), 1)}; }),
              "BoundingBox::BoundingBox: argument 1 not a BoundingBox");
}

// The box is compared with the same test in its own coordinates.
TEST(BoundingBox, TellsTheTruthWhereverItWasMoved) {
    const BoundingBox model(Point4(), direction(1, 0, 0), direction(0, 2, 0), direction(0, 0, 3));
    const Point4 there = place(100, -20, 5);
    const Matrix4 frame(there, direction(0.6f, 0, 0.8f), direction(0, 1, 0));
    BoundingBox flown = model;
    flown.transform(there, direction(3, 0, 4), direction(0, 7, 0));
    BoundingBox placed = model;
    placed.setCenter(there);
    const BoundingBox scaled = model * Matrix4(MATRIX_UNIT).scale(2);

    for (float x : {-1.1f, -0.9f, 0.9f, 1.1f}) {
        for (float y : {-2.1f, -1.9f, 1.9f, 2.1f}) {
            for (float z : {-3.1f, 0.f, 2.9f, 3.1f}) {
                const Point4 p = place(x, y, z);
                const bool inside = std::fabs(x) < 1 && std::fabs(y) < 2 && std::fabs(z) < 3;
                EXPECT_EQ(flown.isIntersected(frame ^ p), inside) << p;
                EXPECT_EQ(placed.isIntersected(there + Vector4(p)), inside) << p;
                EXPECT_EQ(scaled.isIntersected(p * 2), inside) << p;
            }
        }
    }
    const Point4 corner = place(1, 2, -3);
    EXPECT_TRUE(model.isIntersected(Segment(there, corner)));
    EXPECT_TRUE(model.isIntersected(Segment(corner, there)));
    EXPECT_FALSE(BoundingBox().isIntersected(corner));
    EXPECT_FALSE(model.isIntersected(Segment(there, Vector4(there, corner) * 2))) << "no end in it";
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
    for (const Point4& near : {place(1.03f, 2, 2), place(2, 1.03f, 2), place(2, 2, -1.03f)}) {
        EXPECT_TRUE(cube(10).isIntersected(cube(0.1f, near))) << "one axis is enough: " << near;
    }
}

TEST(BoundingBox, TurnsThenMovesAndGrowsAlongTheWorldsAxes) {
    BoundingBox turned(place(0, 0, 5), direction(1, -1, 0), direction(-1, -1, 0),
                       direction(0, 0, -2));
    turned.transform(place(10, 0, 0), direction(1, 0, 0), direction(0, 1, 0));
    std::ostringstream text;
    text << turned << turned + cube(0.5f, place(10, -4, 0));
    EXPECT_EQ(text.str(),
              "* center: (15, 0, 0, 1)\n* vx: (0, -1, -1, 1)\n"
              "* vy: (0, -1, 1, 1)\n* vz: (-2, 0, 0, 1)\n"
              "* center: (13.25, -1.25, 0, 1)\n* vx: (3.75, 0, 0, 1)\n"
              "* vy: (0, 3.25, 0, 1)\n* vz: (0, 0, 2, 1)\n");
}

}  // namespace
