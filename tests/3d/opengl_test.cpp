#include "3d/opengl.h"

#include "3d/camera.h"
#include "3d/material.h"
#include "main/exception.h"
#include "tests/support/window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using testing::ElementsAre;

namespace {

struct Renderer : testing::Test {
    OpenGLContext& gl = *(window(), OpenGLContext::getInstance());
};

/// A green square over a quarter of the window's width and a third of its height, in the middle.
void drawSquare(const OpenGLContext& gl) {
    gl.switchTo2D(0, 800, 0, 600);
    glColor3f(0, 1, 0);
    glRectf(300, 200, 500, 400);
    gl.switchTo3D();
}

}  // namespace

// A dead camera is forgotten, another one's end changes nothing, and frames go on without any.
TEST_F(Renderer, ObservesTheCurrentCamera) {
    auto current = std::make_unique<Camera>();
    gl.setCurrentCamera(current.get());
    { Camera copy = *current; }
    EXPECT_THROW(gl.setCurrentCamera(nullptr), Exception);
    EXPECT_EQ(gl.getCurrentCamera(), current.get());
    current.reset();
    EXPECT_EQ(gl.getCurrentCamera(), nullptr);
    gl.startFrame(true);
    gl.reshape(800, 600);
}

// A frame starts empty, and the lamp hangs in the world, so it moves with the view. The wish for
// lighting is followed in both directions.
TEST_F(Renderer, FrameBringsLightIntoPlace) {
    Camera camera({0, 50, 10, 1}, {0, 1, 0, 1}, {0, 50, 0, 1});
    gl.setCurrentCamera(&camera);
    drawSquare(gl);
    for (const bool lit : {true, false, true}) {
        gl.setLighting(lit);
        gl.startFrame(true);
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING) == lit && glIsEnabled(GL_LIGHT0) == lit);
    }
    float position[4];
    glGetLightfv(GL_LIGHT0, GL_POSITION, position);
    EXPECT_THAT(position, ElementsAre(0, 0, -10, 1));
    EXPECT_THAT(readPixel(400, 300), ElementsAre(0, 0, 0));
}

// The size at which something is drawn changes nothing about its light.
TEST_F(Renderer, LightsEveryScaleAlike) {
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDisable(GL_TEXTURE_2D);
    Camera camera({0, 50, 20, 1}, {0, 1, 0, 1}, {0, 50, 0, 1});
    gl.setCurrentCamera(&camera);
    for (const float scale : {1.f, 0.2f, 5.f}) {
        gl.startFrame(true);
        Material().activate(false);
        glTranslatef(0, 50, -40);
        glScalef(scale, scale, scale);
        glNormal3f(0, 0.9f, 0.435f);
        glRectf(-1 / scale, -1 / scale, 1 / scale, 1 / scale);
        EXPECT_NEAR(readPixel(400, 300)[0], 78, 2) << scale;
    }
}

// An overlay stands on its own, whatever matrix mode and polygons the scene left behind, and gives
// the scene's view back.
TEST_F(Renderer, OverlayLeavesTheSceneAlone) {
    gl.startFrame(false);
    gl.getLightFactory()->deactivateLighting();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    for (int i = 0; i < 2; ++i) drawSquare(gl);
    EXPECT_THAT(readPixel(310, 390), ElementsAre(0, 255, 0)) << "filled";
    EXPECT_THAT(readPixel(290, 410), ElementsAre(0, 0, 0));
    glRectf(-1, -1, 0, 0);
    EXPECT_THAT(readPixel(10, 10), ElementsAre(0, 255, 0)) << "the scene's view again";
}
