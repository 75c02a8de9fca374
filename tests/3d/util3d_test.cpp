#include "3d/util3d.h"

#include "tests/support/geometry.h"

// A scale in `w` counts in the product but not in the length: it stands in for rounding.
TEST(Util3d, ForgivesALittleRoundingOfParallels) {
    for (auto [x, cosine, total] : {std::tuple{1.f, 1.04f, 0.f},
                                    {-1.f, 1.04f, util3d::deg2rad(180)},
                                    {1.f, 1.06f, NAN},
                                    {-1.f, 1.06f, NAN}})
        EXPECT_THAT(util3d::angle(Vector4(x, 0, 0, 1 / cosine), direction(1, 0, 0)).total,
                    testing::NanSensitiveFloatEq(total));
}
