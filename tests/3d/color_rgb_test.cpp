#include "3d/color_rgb.h"

#include "3d/color_rgba.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

TEST(Color, ClampsWhatItIsGivenButNotWhatItComputes) {
    const float rough[] = {2, -1, NAN, 7};
    const ColorRGBA half(0.5f, 0.5f, 0.5f, 0.75f);
    std::array<float, 4> rgba;
    for (const auto& [color, red, green, blue, alpha] :
         {std::tuple{ColorRGBA(rough), 1.f, 0.f, 0.f, 1.f},
          {(half - half * 2) / 0.5f + half, -0.5f, -0.5f, -0.5f, -0.75f}}) {
        color.getRGBA(rgba.data());
        EXPECT_THAT(rgba, testing::ElementsAre(red, green, blue, alpha));
    }
    ColorRGB(1, 0, 1).getRGBA(rgba.data());
    EXPECT_EQ(rgba[3], 1) << "what has no alpha is opaque";
}
