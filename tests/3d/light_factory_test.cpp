#include "3d/light_factory.h"

#include "3d/color_rgba.h"
#include "3d/opengl.h"
#include "main/exception.h"
#include "tests/support/window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::ElementsAre;

namespace {

std::array<float, 4> sent(const _Light& light, GLenum component) {
    std::array<float, 4> values = {};
    glGetLightfv(light.getLightNumber(), component, values.data());
    return values;
}

/// A factory of the test's own beside the one of the context, whose lamp returns at the next frame.
struct Lights : testing::Test {
    OpenGLContext& gl = *(window(), OpenGLContext::getInstance());
    LightFactory factory;
    const Point4 origin = Point4();
};

}  // namespace

// The lowest free slot is taken, also one that was given back; an omni light shines in all
// directions where a spot light was before.
TEST_F(Lights, SlotsAreLimitedAndReused) {
    std::vector<_Light*> lights(8);
    for (auto& light : lights) light = factory.getSpotLight(origin, {0, -1, 0, 1});
    EXPECT_THROW(factory.getOmniLight(origin, new ColorRGB, new ColorRGB), Exception);
    lights[2]->activate(false);
    EXPECT_EQ(sent(*lights[2], GL_SPOT_CUTOFF)[0], 30);
    factory.deleteLight(*lights[2]);
    EXPECT_FALSE(glIsEnabled(GL_LIGHT2));
    const _Light* omni = factory.getOmniLight(origin);
    EXPECT_EQ(omni->getLightNumber(), GLenum(GL_LIGHT2));
    EXPECT_EQ(sent(*omni, GL_SPOT_CUTOFF)[0], 180);
}

// Switches are wishes: OpenGL follows with the next activation only.
TEST_F(Lights, FollowSwitchAndLightingAtActivation) {
    for (_Light* light : {factory.getOmniLight(origin), factory.getSpotLight(origin, {0, 0, 1, 1})})
        for (const bool lit : {true, false, true})
            for (const bool on : {true, false, true}) {
                const bool before = light->isActivated();
                on ? light->switchOn() : light->switchOff();
                gl.setLighting(lit);
                EXPECT_EQ(light->isActivated(), before);
                light->activate(false);
                EXPECT_EQ(light->isActivated(), lit && on);
            }
}

// What is left out follows from the diffuse colour, and goes its own way from then on.
TEST_F(Lights, OwnTheirColours) {
    auto* red = new ColorRGBA(1, 0, 0, 0.25);
    const _Light* light = factory.getOmniLight(origin, red);
    red->setGreen(1);
    EXPECT_THAT(sent(*light, GL_AMBIENT), ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(sent(*light, GL_SPECULAR), ElementsAre(1, 0, 0, 1)) << "an opaque copy";
    EXPECT_EQ(light->getSpecular()->getGreen(), 0);
}
