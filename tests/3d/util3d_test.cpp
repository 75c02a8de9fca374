#include "3d/util3d.h"

#include "tests/support/geometry.h"

#include <memory>

// A scale in `w` counts in the product but not in the length: it stands in for rounding.
TEST(Util3d, ForgivesALittleRoundingOfParallels) {
    struct Case {
        float x, cosine, total;
    };
    for (auto [x, cosine, total] : {Case{1, 1.04f, 0}, Case{-1, 1.04f, util3d::deg2rad(180)},
                                    Case{1, 1.06f, NAN}, Case{-1, 1.06f, NAN}}) {
        EXPECT_THAT(util3d::angle(Vector4(x, 0, 0, 1 / cosine), direction(1, 0, 0)).total,
                    testing::NanSensitiveFloatEq(total));
    }
    const auto angles = util3d::angle(direction(0, 1, 2), direction(3, 0, 4));
    EXPECT_FLOAT_EQ(angles.xz, std::acos(0.8f));
    EXPECT_FLOAT_EQ(util3d::rad2deg(angles.xy), 90);
    EXPECT_FLOAT_EQ(util3d::rad2deg(angles.yz), std::atan(0.5f) * 57.29578f);
}

TEST(Util3d, WorksOnRawFloats) {
    float vec[] = {0, 5, 1};
    util3d::rotateY(vec, util3d::deg2rad(90));
    EXPECT_THAT(Point4(vec[0], vec[1], vec[2], 1), IsNear(1, 5, 0, 1));
    const float a[] = {1, 1, 1}, b[] = {3, 1, 1}, c[] = {1, 4, 1};
    const std::unique_ptr<float[]> normal(util3d::normalize(a, b, c));
    EXPECT_EQ(Vector4(normal[0], normal[1], normal[2], 1), direction(0, 0, 1));
}

TEST(Util3d, EdgesHaveNoDirection) {
    EXPECT_EQ((edge{1, 2}), (edge{2, 1}));
    EXPECT_FALSE((edge{1, 2}) == (edge{1, 1}));
}
