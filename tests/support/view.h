#pragma once

#include "3d/opengl.h"
#include "game/simple_game_camera.h"
#include "tests/support/window.h"

#include <array>

/// The colour of the world point `target` in a frame with nothing but `thing`, seen from `eye` with
/// `up` as what is up. Needs an open window.
inline std::array<int, 3> seenFrom(const Point4& eye, const Vector4& up, const Point4& target,
                                   const _Drawable& thing) {
    SimpleGameCamera camera(eye, up, target);
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->setCurrentCamera(&camera);
    gl->startFrame(true);
    thing.draw(DRAW_TEXTURE);
    return readPixel(400, 300);
}
