#include "3d/texture.h"

#include "3d/texture_factory.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/picture.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

struct TextureTest : testing::Test {
    SDLContext& context = window();
    TempDir dir;
    Capture warnings{std::cerr};
};

/// Red, green, blue of all texels of a texture of one row.
std::string texels(const Texture& texture) {
    texture.activate();
    GLint width = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    std::string rgb(3 * width, '\0');
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    glDisable(GL_TEXTURE_2D);
    return rgb;
}

}  // namespace

TEST_F(TextureTest, SharesThePictureOfAFile) {
    const std::string file = dir.write("x.tga", picture::tga(2, 1, 24, {"cba\0\0\0", 6}));
    const Texture first(file, GL_REPLACE, true);
    const Texture second(file, GL_DECAL, false);
    EXPECT_EQ(texels(second), "abc\xff\xff\xff") << "the first request decides about black";
    TextureFactory::getInstance()->deleteTexObject(file);
    second.activate();
    EXPECT_EQ(warnings.text(), "WARNING (3D): Texture::activate: invalid texture object\n");
    dir.write("x.tga", picture::tga(300, 1, 24, std::string(900, '!')));
    TextureFactory::getInstance()->getTexObject(file, false);
    EXPECT_EQ(texels(second), std::string(256 * 3, '!')) << "a power of two, anew for all";
}

TEST_F(TextureTest, OutlivesBadPicturesAndModes) {
    const std::string missing = dir / "missing.png";
    EXPECT_EQ(failureOf([&] { Texture(missing, GL_DECAL, false); }),
              "Image::Image: Error loading image " + missing + "!");
    const Texture empty(missing, 5, false);
    EXPECT_EQ(texels(empty) + texels(empty), "") << "the second time it is just empty";
    EXPECT_EQ(warnings.text(),
              "WARNING (3D): Texture::activate: invalid tex_env, falling back to GL_MODULATE\n");
}

TEST_F(TextureTest, GrabsPicturesThatNoCopyTakesAway) {
    const auto grab = [](Texture& texture, float red) {
        glClearColor(red, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
        texture.grabFrameBuffer(10, 10, 1, 1);
    };
    Texture picture;
    grab(picture, 1);
    GLint name = 0;
    {
        Texture copy(picture);
        grab(copy, 0);
        EXPECT_EQ(texels(copy), std::string(3, '\0'));
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &name);
    }
    EXPECT_FALSE(glIsTexture(static_cast<GLuint>(name))) << "gone with its one holder";
    EXPECT_EQ(texels(picture), std::string("\xff\0\0", 3));
}
