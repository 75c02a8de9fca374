#include "3d/plane.h"

#include "3d/3d_exception.h"
#include "3d/line.h"
#include "tests/support/geometry.h"

TEST(Plane, KnowsItsSides) {
    for (const Plane& plane : {Plane(0, 0, 2, -4), Plane(place(5, 0, 2), direction(0, 0, 9)),
                               Plane(Point4(2, 0, 4, 2), place(3, 0, 2), Point4(2, 8, 4, 2))}) {
        EXPECT_EQ(plane.getNormal(), direction(0, 0, 1)) << plane;
        EXPECT_TRUE(plane.isInside(Point4(0, 0, 4, 2)) && plane.isInside(place(0, 0, 3)));
        EXPECT_FALSE(plane.isOutside(place(0, 0, 2)) || plane.isInside(Point4(0, 0, 2, 2)));
    }
    const Plane nowhere(Point4(), direction(0, 0, 0));
    EXPECT_FALSE(nowhere.isInside(Point4()) || nowhere.isOutside(Point4()));
}

TEST(Line, MeetsPlanesBehindItselfToo) {
    const Line line(place(2, 0, 5), direction(1, -1, 0));
    EXPECT_THAT(line & Plane(1, 0, 0, 0), IsNear(0, 2, 5, 1));
    EXPECT_THROW(line & Plane(0, 0, 1, -5), IntersectException) << "a line in the plane";
    EXPECT_THROW(line & Plane(0, 0, 1, 4), IntersectException) << "a line beside the plane";
}
