#include "3d/vector.h"

#include "tests/support/geometry.h"

#include <limits>

namespace {

constexpr float pi = 3.14159265f;

TEST(Quadrupel, SumsBringBothSidesToTheSameScale) {
    EXPECT_EQ(Vector4(1, 1, 1, 1) + Vector4(2, 2, 2, 2), direction(2, 2, 2));
    EXPECT_EQ(Vector4(2, 4, 6, 2) - Vector4(1, 1, 1, 0), direction(0, 1, 2));
    EXPECT_EQ(Point4(4, 4, 4, 2) - Vector4(3, 6, 9, 3), place(1, 0, -1));
    EXPECT_EQ(direction(1, 2, 3) + Point4(20, 40, 60, 2), place(11, 22, 33));
    Vector4 doubled(2, 4, 6, 2);
    EXPECT_EQ(doubled += doubled, direction(2, 4, 6));
    EXPECT_EQ(Vector4(Point4(2, 0, 0, 2), Point4(0, 0, 9, 3)), direction(-1, 0, 3));
    EXPECT_EQ(Point4(Point4(4, 0, 0, 2), place(0, 6, 0)), place(1, 3, 0));
}

TEST(Vector4, ProductsHomogenizeButLengthDoesNot) {
    EXPECT_EQ(Vector4(2, 0, 0, 2) * direction(1, 0, 0), 1);
    EXPECT_EQ(Vector4(2, 0, 0, 2).getLength(), 2);
    EXPECT_EQ(Vector4(2, 4, 6, 2) ^ Vector4(4, 5, 6, 0), direction(-3, 6, -3));
}

TEST(Vector4, NormalizesWhatFloatSquaresCannotHold) {
    EXPECT_THAT(direction(3e-30f, 0, 4e-30f).normalize(), IsNear(0.6f, 0, 0.8f, 1));
    EXPECT_THAT(direction(0, 3e30f, -4e30f).normalize(), IsNear(0, 0.6f, -0.8f, 1));
}

TEST(Vector4, WorldAxesTurnCounterClockwise) {
    EXPECT_THAT(direction(5, 1, 0).rotateX(pi / 2), IsNear(5, 0, 1, 1));
    EXPECT_THAT(direction(0, 5, 1).rotateY(pi / 2), IsNear(1, 5, 0, 1));
    EXPECT_THAT(direction(1, 0, 5).rotateZ(pi / 2), IsNear(0, 1, 5, 1));
}

TEST(Vector4, SteeringTurnsClockwiseByDegrees) {
    const Vector4 v = direction(1, 2, 3);
    EXPECT_THAT(Vector4(v).rotate(direction(1, 0, 0), -30), IsNear(Vector4(v).rotateX(pi / 6)));
    EXPECT_THAT(Vector4(v).rotate(direction(0, 5, 0), -30), IsNear(Vector4(v).rotateY(pi / 6)));
    EXPECT_THAT(Vector4(v).rotate(Vector4(0, 0, 3, 2), -30), IsNear(Vector4(v).rotateZ(pi / 6)));
    EXPECT_THAT(Vector4(v).rotate(direction(1, 1, 1), 120), IsNear(2, 3, 1, 1));
    Vector4 own(2, 4, 6, 2);
    EXPECT_THAT(own.rotate(own, 50), IsNear(2, 4, 6, 1)) << "its own axis, read before it changes";
    const float inf = std::numeric_limits<float>::infinity();
    for (const Vector4& none : {direction(0, 0, 0), direction(inf, 0, 0), Vector4(1, 1, 1, NAN)})
        EXPECT_EQ(Vector4(v).rotate(none, 90), v) << none;
}

}  // namespace
