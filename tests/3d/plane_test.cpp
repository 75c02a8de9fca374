#include "3d/plane.h"

#include "3d/3d_exception.h"
#include "3d/line.h"
#include "3d/segment.h"
#include "tests/support/failure.h"
#include "tests/support/geometry.h"

TEST(Plane, KnowsItsSides) {
    for (const Plane& plane : {Plane(0, 0, 2, -4), Plane(place(5, 0, 2), direction(0, 0, 9)),
                               Plane(Point4(2, 0, 4, 2), place(3, 0, 2), Point4(2, 8, 4, 2))}) {
        EXPECT_EQ(plane.getNormal(), direction(0, 0, 1)) << plane;
        EXPECT_TRUE(plane.isInside(place(0, 0, 2)) && plane.isOnPlane(Point4(0, 0, 4, 2)));
        EXPECT_TRUE(plane.isInside(place(0, 0, 3)) && !plane.isOnPlane(place(0, 0, 3)));
        EXPECT_FALSE(plane.isOutside(place(0, 0, 2)) || plane.isInside(Point4(0, 0, 2, 2)));
    }
    const Plane nowhere(Point4(), direction(0, 0, 0));
    EXPECT_FALSE(nowhere.isInside(Point4()) || nowhere.isOutside(Point4()));
    EXPECT_THAT(Plane(1, 1, 0, -2).project(place(3, 3, 7)), IsNear(1, 1, 7, 1));
}

TEST(Line, MeetsPlanesBehindItselfToo) {
    const Line line(place(2, 0, 5), direction(1, -1, 0));
    EXPECT_THAT(line & Plane(1, 0, 0, 0), IsNear(0, 2, 5, 1));
    EXPECT_THAT(Plane(1, 0, 0, -9) & line, IsNear(9, -7, 5, 1));
    EXPECT_THROW(line & Plane(0, 0, 1, -5), IntersectException) << "a line in the plane";
    EXPECT_EQ(failureOf([&] { line& Plane(0, 0, 1, 4); }), "Line::operator&: no intersection");
    EXPECT_EQ(failureOf([&] { Plane(0, 0, 1, 4) & line; }), "Plane::operator&: no intersection");
    EXPECT_EQ(failureOf([&] { line& line; }), "Line::operator&(Line): not yet implemented");
}

TEST(Line, CommonLineOfTwoPlanesLiesInBoth) {
    const Plane p(1, 2, 3, -4), q(2, -1, 1, 5);
    for (float z : {0.f, -6.f}) {
        const Point4 on = Line(p, q) & Plane(0, 0, 1, -z);
        EXPECT_THAT(p.project(on), IsNear(on));
        EXPECT_THAT(q.project(on), IsNear(on));
    }
}

TEST(Line, DistancesAndIncidence) {
    const Line slope(place(1, 0, 2), direction(3, 0, 4));
    EXPECT_FLOAT_EQ(slope.getDistance(Point4(-6, -14, 10, 2)), std::hypot(5.f, 7.f));
    EXPECT_TRUE(Line(Point4(), direction(2, 0, 0)).isOnLine(Point4(8, 0, 0, 2)));
    EXPECT_FALSE(slope.isOnLine(place(1, 1, 2)) || slope.isOnLine(place(1, 0, 7)));
    EXPECT_FALSE(Line(Point4(), direction(0, 1, 0)).isOnLine(Point4())) << "no extent along x";
}

TEST(Segment, ScalesAboutItsMiddleAndSlidesAlongItself) {
    Segment way(place(0, 5, 0), direction(2, 0, 0));
    way.scale(2);
    EXPECT_EQ(way.getLength(), 2);
    way.scale(1);
    EXPECT_EQ(way.getStartPoint(), place(0.5f, 5, 0));
    way.move(-3);
    EXPECT_EQ(way.getStartPoint(), place(-2.5f, 5, 0));
    EXPECT_EQ(way.getEndPoint(), place(-1.5f, 5, 0));
}
