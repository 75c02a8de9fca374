#pragma once

#include "main/sdl_context.h"

#include <GL/gl.h>
#include <SDL.h>

#include <array>

/// The game's real window, 800 by 600, opened once for the whole test program.
inline SDLContext& window() {
    static SDLContext* context = [] {
        SDLContext::init(SDL_INIT_VIDEO, 800, 600);
        return SDLContext::getInstance();
    }();
    return *context;
}

/// Red, green and blue of one pixel of the back buffer, 0 to 255; the origin is bottom left.
inline std::array<int, 3> readPixel(int x, int y) {
    unsigned char rgb[3] = {};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, y, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, rgb);
    return {rgb[0], rgb[1], rgb[2]};
}
