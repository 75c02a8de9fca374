#pragma once

#include "3d/color_rgb.h"

#include <GL/gl.h>

/// What a shot in flight looks like: a line along its axis, `half_length` to either side, that
/// glows by itself. Leaves lighting and texturing off.
inline void drawBolt(const ColorRGB& color, float line_width, float half_length) {
    color.activate();
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glPushAttrib(GL_LINE_BIT);
    glLineWidth(line_width);
    glBegin(GL_LINES);
    glVertex3f(0, 0, half_length);
    glVertex3f(0, 0, -half_length);
    glEnd();
    glPopAttrib();
}
