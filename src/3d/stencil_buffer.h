#pragma once

#include <GL/gl.h>

/// The stencil buffer, which confines drawing to masks. Has no state of its own; handed out by the
/// OpenGL context.
class StencilBuffer {
public:
    /// A pixel passes where `r`, masked by `m`, compares to the stored value as `f` (GL_EQUAL,
    /// ...).
    void setStencilFunc(unsigned f, int r, unsigned m) const { glStencilFunc(f, r, m); }
    /// What happens to the stored value: `f` where the mask fails, `zf` where only the depth test
    /// fails, `zp` where both pass.
    void setStencilOp(unsigned f, unsigned zf, unsigned zp) const { glStencilOp(f, zf, zp); }
    void activate() const { glEnable(GL_STENCIL_TEST); }
    void deactivate() const { glDisable(GL_STENCIL_TEST); }
};
