#include "3d/texture.h"

#include "tests/support/picture.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

namespace {

struct TextureTest : testing::Test {
    SDLContext& context = window();
    TempDir dir;
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
    const std::string wide = dir.write("y.tga", picture::tga(300, 1, 24, std::string(900, '!')));
    EXPECT_EQ(texels(Texture(wide, GL_DECAL, false)), std::string(256 * 3, '!'));
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
