#include "game/background_model.h"

#include "3d/light.h"
#include "3d/opengl.h"
#include "game/hull.h"
#include "tests/support/ship_yard.h"
#include "tests/support/tiny_game.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

// The scene behind the menu of the tiny game: the ship is seen above the table, its mirror image
// through the table.
TEST(BackgroundModel, ShowsShipTableAndMirrorImage) {
    ShipYard yard;
    const TinyGame tiny;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(tiny.getDirectory());
    const auto ship = yard.ship();
    Hull* hull = ship->getHull();
    BackgroundModel scene(hull);
    scene.update(12500);
    EXPECT_FLOAT_EQ(scene.getAngle(), 15) << "once round, and on";

    OpenGLContext* gl = OpenGLContext::getInstance();
    { const BackgroundModel second(hull); }
    _Light* freed = gl->getLightFactory()->getOmniLight(Point4());
    EXPECT_EQ(freed->getLightNumber(), scene.getLight()->getLightNumber() + 1) << "of the second";
    gl->getLightFactory()->deleteLight(*freed);

    // The colour at the world point (0, y, 0), seen from in front and above.
    const auto at = [&](float y) {
        Camera camera(Point4(0, 8, 30, 1), Vector4(0, 1, 0, 1), Point4(0, y, 0, 1));
        camera.setAspectRatio(window().getAspectRatio());
        scene.setCamera(camera);
        gl->startFrame(false);
        scene.draw(DRAW_TEXTURE);
        return readPixel(400, 300);
    };
    scene.setHeightOffset(5);
    EXPECT_GT(std::ranges::max(at(5)), 20);
    const auto with_image = at(-5);
    scene.setReflections(false);
    const auto table = at(-5);
    EXPECT_NE(with_image, table);
    EXPECT_GT(table[1], table[0]) << "the green of the picture";
    scene.setTable(false);
    scene.setReflections(true);
    EXPECT_GT(std::ranges::max(at(5)), 20);
    EXPECT_LT(std::ranges::max(at(-5)), 5) << "no table, no image";
    std::filesystem::current_path(before);
}
