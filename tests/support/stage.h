#pragma once

#include "3d/opengl.h"
#include "tests/support/window.h"

/// An empty, unlit picture of the plane z = 0, 16 by 12 units around the origin, to draw on and to
/// read pixels from. Leaves OpenGL as it was.
class Stage {
public:
    Stage() {
        window();
        OpenGLContext::getInstance()->setLighting(false);
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glDisable(GL_LIGHTING);
        glViewport(0, 0, 800, 600);
        OpenGLContext::getInstance()->switchTo2D(-8, 8, -6, 6);
        clear();
    }
    ~Stage() {
        OpenGLContext::getInstance()->switchTo3D();
        glPopAttrib();
        OpenGLContext::getInstance()->setLighting(true);
    }

    void clear() const { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT); }
    std::array<int, 3> at(double x, double y) const {
        return readPixel(static_cast<int>((x + 8) * 50), static_cast<int>((y + 6) * 50));
    }
};
