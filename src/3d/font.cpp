#include "3d/font.h"

#include "3d/color_rgb.h"

#include <GL/gl.h>

#include <memory>

namespace {

/// Flat text is neither lit nor textured, and white unless it was given a colour.
void setUp(std::unique_ptr<const ColorRGB> color) {
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    if (color) {
        color->activate();
    } else {
        ColorRGB(1, 1, 1).activate();
    }
}

}  // namespace

void _Font::write(const std::string& text, DRWenum mode) const {
    for (const char c : text) drawChar(c, mode);
}

void _Font::write(float x, float y, const std::string& text, ColorRGB* c, DRWenum) const {
    setUp(std::unique_ptr<const ColorRGB>(c));
    glRasterPos2f(x, y);
    write(text, DRAW_FLAT);
}

void _Font::write(float x, float y, float z, const std::string& text, ColorRGB* c, DRWenum) const {
    setUp(std::unique_ptr<const ColorRGB>(c));
    glRasterPos3f(x, y, z);
    write(text, DRAW_FLAT);
}
