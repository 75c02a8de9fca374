#include "3d/color_rgb.h"

#include "3d/color_rgba.h"
#include "tests/support/failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

TEST(Color, ClampsWhatItIsGivenButNotWhatItComputes) {
    const float rough[] = {2, -1, NAN, 7};
    const ColorRGBA half(0.5f, 0.5f, 0.5f, 0.75f);
    std::ostringstream out;
    out << ColorRGB(2, -1, 0.5f) << ColorRGB(rough) << ColorRGBA(rough) << ColorRGBA();
    EXPECT_EQ(out.str(), "(1, 0, 0.5)(1, 0, 0)(1, 0, 0, 1)(0.5, 0.5, 0.5, 0)");
    out.str("");
    out << ColorRGB(1, 0.5f, 0) + ColorRGB(1, 0, 0) << (half - half * 2) / 0.5f + half;
    EXPECT_EQ(out.str(), "(2, 0.5, 0)(-0.5, -0.5, -0.5, -0.75)");
    float rgba[4] = {};
    ColorRGB(1, 0, 1).getRGBA(rgba);
    EXPECT_EQ(rgba[3], 1) << "what has no alpha is opaque";
    EXPECT_EQ(failureOf([] { ColorRGBA(nullptr); }), "ColorRGBA::ColorRGBA: null pointer");
    EXPECT_EQ(failureOf([] { ColorRGBA().getRGBA(nullptr); }), "ColorRGB::getRGB: null pointer");
}
