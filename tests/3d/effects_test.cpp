#include "3d/gfx_factory.h"
#include "3d/space_bg.h"
#include "game/simple_game_camera.h"
#include "tests/support/models.h"
#include "tests/support/sprites.h"

namespace {

using Color = std::array<int, 3>;
constexpr Color red{255, 0, 0}, green{0, 255, 0}, black{0, 0, 0};

struct Effects : testing::Test {
    Color shown(const AnimatedSprite& sprite, double x = 0) const {
        stage.clear();
        sprite.drawCurrentFrame();
        return stage.at(x, 0);
    }
    static int count(GLboolean (*is)(GLuint)) {
        int count = 0;
        for (GLuint name = 1; name < 100000; ++name) count += is(name);
        return count;
    }
    const Stage stage;
    const TempDir dir;
};

}  // namespace

// Pictures come in the order of their numbers, on a filled square of edge 1, shine through, and end
// with nothing. Copies of a master play each on their own. A series that is not whole is no master,
// and leaves no list behind.
TEST_F(Effects, PlaySeriesOfPictures) {
    for (char i = '0'; const char* bgra : {"\0\0\xff\xff", "\0\xff\0\xff", "\xff\0\0\x80"})
        dir.write(std::string("a000") + i++ + "b.tga", picture::tga(1, 1, 32, {bgra, 4}));
    const std::string series = dir / "a*b.tga", name = dir / "flash";
    GFX_Factory* effects = GFX_Factory::getInstance();
    const int lists = count(glIsList);
    EXPECT_EQ(failureOf([&] { effects->addAnimatedSprite(name, series, 4); }),
              "Image::Image: Error loading image " + (dir / "a0003b.tga") + "!");
    EXPECT_EQ(count(glIsList), lists);
    effects->addAnimatedSprite(name, series, 3);

    AnimatedSprite sprite = effects->getAnimatedSprite(name);
    const AnimatedSprite other = sprite;
    sprite.setDuration(300);
    for (const auto& [step, picture, progress, goes_on] : {std::tuple<int, Color, float, bool>  //
                                                           {99, red, 0, true},
                                                           {1, green, 1 / 3.f, true},
                                                           {199, {0, 0, 128}, 2 / 3.f, true},
                                                           {1, black, 1, true},
                                                           {1, black, 1, false}}) {
        EXPECT_EQ(sprite.updateAnimation(step), goes_on);
        EXPECT_EQ(shown(sprite), picture);
        EXPECT_FLOAT_EQ(sprite.getProgress(), progress);
    }
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    EXPECT_EQ(std::pair(shown(other, 0.4), shown(other, 0.6)), std::pair(red, black));
    sprite.setDuration(0);
    EXPECT_FALSE(sprite.updateAnimation(0)) << "over at once";
    sprites::writeExplosions(dir);
    AnimatedSprite hundred(dir / sprites::series + "explosion*.png", 100, 0);
    hundred.setFrameTime(0.04f);
    EXPECT_EQ(hundred.getDuration(), 4);
}

// Each face of the sky shows its own sixth of the picture the right way round, wherever the camera
// is, and hides nothing. Modes without textures show none. It leaves no trace.
TEST_F(Effects, SurroundTheCameraWithTheSky) {
    std::string rulers;  // red grows to the right, green upwards
    for (int i = 0; i < 64 * 128; ++i)
        rulers += {static_cast<char>(2 * (i % 128)), static_cast<char>(252 - i / 128 * 4), 0x40};
    const Point4 eye(1000, -2000, 3000, 1);
    OpenGLContext* gl = OpenGLContext::getInstance();
    const int lists = count(glIsList);
    auto sky = std::make_unique<SpaceBG>(100, dir.write("sky", picture::ppm(128, 64, rulers)));
    const std::tuple<Vector4, float, float> places[] = {
        {{0.5f, -0.5f, -1, 1}, 0.4125f, 0.875f}, {{-0.5f, 0.5f, 1, 1}, 0.915f, 0.125f},
        {{1, -0.5f, 0.5f, 1}, 0.745f, 0.875f},   {{-1, 0.5f, -0.5f, 1}, 0.2475f, 0.625f},
        {{-0.5f, 1, 0.5f, 1}, 0.2475f, 0.125f},  {{0.5f, -1, -0.5f, 1}, 0.4125f, 0.375f}};
    for (const auto& [direction, u, v] : places) {
        SimpleGameCamera camera(eye, Vector4(0.3f, 0.5f, 0.7f, 1), eye + direction);
        gl->setCurrentCamera(&camera);
        gl->startFrame(true);
        sky->draw(DRAW_TEXTURE);
        EXPECT_NEAR(readPixel(400, 300)[0], 256 * u, 4) << direction;
        EXPECT_NEAR(readPixel(400, 300)[1], 256 * v, 4) << direction;
        float depth = 0;
        glReadPixels(400, 300, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
        EXPECT_EQ(depth, 1);
        gl->startFrame(true);
        sky->draw(DRAW_WIRE);
        EXPECT_EQ(readPixel(400, 300), black) << "lines alone";
    }
    sky->draw(DRAW_TEXTURE);  // does nothing: the camera is gone
    sky.reset();
    EXPECT_EQ(failureOf([&] { SpaceBG(1, dir / "none.jpg"); }),
              "SpaceBG::SpaceBG: could not create material");
    EXPECT_EQ(count(glIsList), lists);
}

// A sky takes its picture along, and brings it again; one that something else shows as well stays.
TEST_F(Effects, FreeThePictureOfASky) {
    const std::string file = dir.write("sky", picture::ppm(1, 1, "abc"));
    const int pictures = count(glIsTexture);
    for (const int others : {0, 0, 1}) {
        auto sky = std::make_unique<SpaceBG>(1, file);
        EXPECT_EQ(count(glIsTexture), pictures + 1);
        if (others > 0) Texture(file, GL_REPLACE, false);
        sky.reset();
        EXPECT_EQ(count(glIsTexture), pictures + others);
    }
}
