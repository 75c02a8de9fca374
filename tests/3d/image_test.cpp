#include "3d/image.h"

#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/files.h"
#include "tests/support/picture.h"
#include "tests/support/temp_dir.h"

#include <gtest/gtest.h>

#include <climits>
#include <iostream>
#include <tuple>

namespace {

Image loaded(const std::string& content) {
    TempDir dir;
    const char* name = content[0] == 0 ? "picture.tga" : "picture";  // the one form without a mark
    return Image(dir.write(name, content), false, DEFAULT_ALPHA);
}

std::string pixels(const Image& image) {
    const int bytes = image.getWidth() * image.getHeight() * (image.hasAlpha() ? 4 : 3);
    return {reinterpret_cast<const char*>(image.getPixels()), static_cast<std::size_t>(bytes)};
}

/// Two by two pixels: "ghi" and "jkl" in the bottom row, "abc" and "def" above.
Image letters() {
    return loaded(picture::ppm(2, 2, "abcdefghijkl"));
}

}  // namespace

// Also rows of odd length, which SDL pads.
TEST(Image, LoadsDirectColoursBottomRowFirst) {
    const std::string odd_rows = "abcdefghijklmnopqr";
    for (const auto& [image, expected, format] :
         {std::tuple{loaded(picture::ppm(3, 2, odd_rows)), "jklmnopqrabcdefghi", GL_RGB},
          {loaded(picture::tga(3, 2, 24, odd_rows)), "jklmnopqrabcdefghi", GL_BGR},
          {loaded(picture::tga(1, 2, 32, "abcdefgh")), "efghabcd", GL_BGRA}}) {
        EXPECT_EQ(pixels(image), expected);
        EXPECT_EQ(image.getGLFormat(), GLenum(format)) << expected;
    }
}

TEST(Image, RefusesFilesThatHoldNoUsablePixels) {
    TempDir dir;
    for (const auto& [content, text] : {std::pair{std::string(), "!"},
                                        {picture::ppm(100, 100, "abc"), "!"},
                                        {picture::tga(0, 0, 24, ""), "!"},
                                        {"P5 2 2 255\nabcd", ": not supported."},
                                        {picture::tga(2, 1, 16, "abcd"), ": not supported."}}) {
        const std::string file = dir.write(content[0] ? "pnm" : "x.tga", content);
        EXPECT_EQ(failureOf([&] { Image(file, true, DEFAULT_ALPHA); }),
                  "Image::Image: Error loading image " + file + text);
    }
}

TEST(Image, FitsTheSizeThatIsAskedFor) {
    TempDir dir;
    for (auto [w, h, fit_w, fit_h] :
         {std::tuple{300, 200, 256, 128}, {256, 511, 256, 256}, {1, 1, 1, 1}}) {
        const std::string file = dir.write("x", picture::ppm(w, h, std::string(w * h * 3, 'x')));
        const Image fit(file, true, WITH_ALPHA);
        EXPECT_EQ(std::pair(fit.getWidth(), fit.getHeight()), std::pair(fit_w, fit_h));
        EXPECT_EQ(pixels(fit).substr(0, 4), "xxx\xff");
    }
}

TEST(Image, ScalesSmoothlyUpAndInBoxesDown) {
    const auto grey = [](const char* values) {
        std::string rgb;
        for (; *values; ++values) rgb += std::string(3, *values);
        return rgb;
    };
    for (auto [w, h, from, to_w, to_h, to] :
         {std::tuple{2, 2, "AaQz", 3, 3, "AQaI[mQez"},
          {1, 1, "M", 2, 3, "MMMMMM"},
          {4, 4, "AIIIQTIIaeimquy}", 2, 2, "KIs}"},
          // A side that grows takes part in the box all the same.
          {2, 3, "AKCMdz", 3, 2, "GGLooz"}}) {
        Image image = loaded(picture::ppm(w, h, grey(from)));
        EXPECT_EQ(pixels(image.flipX().resize(to_w, to_h)), grey(to));
        EXPECT_NE(failureOf([&, side = to_w] { image.resize(side, 0); }), "nothing thrown");
        EXPECT_EQ(failureOf([&] { image.resize(INT_MAX, INT_MAX); }),
                  "Imagae::resize: out of memory");
        EXPECT_EQ(pixels(image), grey(to)) << "a failure leaves the image as it was";
    }
}

TEST(Image, WritesScreenshotsThatOthersCanRead) {
    Capture progress(std::cout);
    TempDir dir;
    const std::string file = dir / "shot.tga";
    for (const Image& image : {letters(), letters().addAlpha('!').swapA(),
                               loaded(picture::tga(2, 2, 32, "cba!fed!ihg!lkj!"))}) {
        image.writeTGA(file);
        EXPECT_EQ(readFile(file), picture::words({0, 2, 0, 0, 0, 0, 2, 2, 24}) + "ihglkjcbafed");
    }
    EXPECT_EQ(failureOf([] { letters().writeTGA("/dev/full"); }),
              "Image::writeTGA: Error writing data.");
}
