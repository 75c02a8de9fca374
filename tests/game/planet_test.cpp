#include "game/planet.h"

#include "3d/bounding_sphere.h"
#include "3d/opengl.h"
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
    for (int frame = 0; frame < 100'000; ++frame) rock->update(20);
    EXPECT_NEAR(rock->getOrientation().getLength(), 1, 1e-5) << "after half an hour";
}

TEST_F(PlanetTest, CloudsDriftAndStepBack) {
    for (const auto& [velocity, offset, time, drifted] :
         {std::tuple("0.2", "0", 20, 0.0008f), {"1", "999.9", 1000, 0.1f}}) {
        auto clouds = planet(" rep3d_mt=" + model + " cloud_x_offset='" + offset +
                             "' cloud_velocity='" + velocity + "'");
        clouds->update(time);
        EXPECT_NEAR(drift(*clouds), drifted, 1e-4);
    }
}

}  // namespace
