#include "game/planet.h"

#include "3d/bounding_sphere.h"
#include "3d/opengl.h"
#include "tests/support/failure.h"
#include "tests/support/landing.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

struct PlanetTest : testing::Test {
    std::unique_ptr<Planet> planet(const std::string& more) {
        return std::make_unique<Planet>(yard.element(
            "<Planet id='3' name='Rock' pos='P(10|0|0)' velocity='0.5'" + body + more + "/>"));
    }
    /// How far the clouds have drifted, as OpenGL is told of it.
    static float drift(const Planet& planet) {
        planet.drawModel(DRAW_MULTITEX);
        glActiveTextureARB(GL_TEXTURE1_ARB);
        float matrix[16];
        glGetFloatv(GL_TEXTURE_MATRIX, matrix);
        glActiveTextureARB(GL_TEXTURE0_ARB);
        EXPECT_EQ(matrix[12], matrix[13]);
        return matrix[12];
    }

    ShipYard yard;
    const std::string body = yard.body(), model = body.substr(body.find("rep3d=") + 6);
};

TEST_F(PlanetTest, TurnsAndHasASphereAboveItsSurface) {
    const auto rock = planet(" rep3d_mt=''");
    EXPECT_EQ(rock->getId(), 0x2003);
    EXPECT_FALSE(rock->isMultiTex());
    EXPECT_EQ(rock->getSize(), 21) << "the model's radius is 1";
    rock->setPosition(Point4(20, 0, 0, 1));
    rock->update(2500);
    EXPECT_EQ(rock->getBoundingObject().getCenter(), Point4(20, 0, 0, 1));
    EXPECT_NEAR(rock->getOrientation().x, 1, 1e-5) << "a quarter of a turn";
}

TEST_F(PlanetTest, CloudsDriftAndStepBack) {
    const std::string mt = " rep3d_mt=" + model + " cloud_x_offset=";
    auto clouds = planet(mt + "'0' cloud_velocity='0.2'");
    clouds->update(20);
    EXPECT_FLOAT_EQ(drift(*clouds), 0.0008f);
    clouds = planet(mt + "'999.9' cloud_velocity='1'");
    clouds->update(1000);
    EXPECT_NEAR(drift(*clouds), 0.1, 1e-4);
    EXPECT_EQ(failureOf([&] { planet(mt + "'0'"); }), "no such attribute: cloud_velocity");
}

// The screen waits for a key, whatever else happens meanwhile.
TEST_F(PlanetTest, LandingScreenEndsWithAKey) {
    loadLandingFonts(yard);
    const auto rock = planet("");
    CameraManagement::getInstance()->changeCamera(CAM_PLANET, rock->getCameras(), CPOS_FRONT);
    for (const Uint8 type : {SDL_KEYUP, SDL_KEYDOWN}) {
        SDL_Event key{};
        key.type = type;
        SDL_PushEvent(&key);
    }
    rock->run();
    SDL_Event left;
    EXPECT_EQ(SDL_PeepEvents(&left, 1, SDL_GETEVENT, SDL_KEYUPMASK | SDL_KEYDOWNMASK), 0);
}

}  // namespace
