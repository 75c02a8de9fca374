#include "3d/bitmap.h"

#include "3d/bitmap_factory.h"
#include "3d/opengl.h"
#include "tests/support/failure.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

namespace {

Bitmap* load(const std::string& file) {
    window();
    return BitmapFactory::getInstance()->getBitmap(file);
}

/// What a mask draws at (100, 100) of an empty screen whose depth buffer hides everything: three
/// rows from the bottom up, a '#' for each white pixel.
std::string drawn(const Bitmap& mask, int z) {
    OpenGLContext::getInstance()->switchTo2D(0, 800, 0, 600);
    glClearDepth(0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glClearDepth(1);
    mask.draw(100, 100, z, true);
    OpenGLContext::getInstance()->switchTo3D();
    std::string marks;
    for (int y = 100; y < 103; ++y, marks += '|')
        for (int x = 100; x < 118; ++x) marks += readPixel(x, y)[1] == 255 ? '#' : '.';
    return marks;
}

}  // namespace

TEST(Bitmap, DrawsTheBitsOfItsFile) {
    const TempDir dir;
    for (const auto& [content, marks] :
         {std::pair{std::string("13 2\n\x80\x08\x00\xff", 9),
                    "#...........#.....|........#####.....|..................|"},
          {{" 17\t2 \x20\x01\x80\xff\x00\x00", 13},
           "..#............##.|########..........|..................|"},
          {"16 9\n\xff\xff\x01", "################..|.......#..........|..................|"}})
        EXPECT_EQ(drawn(*load(dir.write(std::to_string(content.size()), content)), -1), marks);
}

TEST(Bitmap, IgnoresDepthWithoutChangingIt) {
    const TempDir dir;
    const Bitmap* mask = load(dir.write("mask", "1 1\n\x80"));
    EXPECT_EQ(load(dir.write("mask", "8 8\n")), mask) << "each file is loaded once";
    for (bool depth_test : {false, true}) {
        (depth_test ? glEnable : glDisable)(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
        EXPECT_EQ(drawn(*mask, -1)[0], '#');
        EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), depth_test);
        EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
        EXPECT_EQ(drawn(*mask, 0)[0], depth_test ? '.' : '#');
    }
}

TEST(Bitmap, RefusesSizesThatNoMaskHas) {
    const TempDir dir;
    for (const char* header : {"-5 8", "8 -5", "1 2147483647", "99999999999 1"})
        EXPECT_EQ(failureOf([&] { load(dir.write(header, header)); }),
                  "Bitmap::Bitmap: Error loading bitmap " + (dir / header));
    for (const char* header : {"16", "16 x", "x", "0 0\n"})
        EXPECT_EQ(load(dir.write(header, header))->getWidth(), 0) << "half a header is none";
    EXPECT_NE(failureOf([&] { load(dir / "late"); }), "nothing thrown");
    EXPECT_EQ(load(dir.write("late", "3 4\n"))->getHeight(), 4) << "the next request tries again";
}
