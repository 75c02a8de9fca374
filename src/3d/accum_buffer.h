#pragma once

#include <GL/gl.h>

/// The accumulation buffer, which adds up whole pictures. Has no state of its own; handed out by
/// the OpenGL context.
class AccumBuffer {
public:
    /// Adds the picture, multiplied by `f`.
    void accumBuffer(float f) const { glAccum(GL_ACCUM, f); }
    /// Takes the picture, multiplied by `f`, in place of what was there.
    void loadBuffer(float f) const { glAccum(GL_LOAD, f); }
    /// Writes the sum, multiplied by `f`, back into the picture.
    void returnBuffer(float f) const { glAccum(GL_RETURN, f); }
    /// Adds `f` to every component of the sum.
    void addBuffer(float f) const { glAccum(GL_ADD, f); }
    /// Multiplies every component of the sum by `f`.
    void multBuffer(float f) const { glAccum(GL_MULT, f); }
};
