#pragma once

/// How a model is drawn. Also the offset into a model's six display lists.
enum DRWenum {
    DRAW_WIRE = 0,
    DRAW_FLAT = 1,
    DRAW_PHONG = 2,
    DRAW_TEXTURE = 3,
    DRAW_MULTITEX = 4,
    DRAW_SHADOW = 5,
};

/// Anything that can put itself on screen, inside the frame bracket of the OpenGL context.
class _Drawable {
public:
    virtual ~_Drawable() = default;

    virtual void draw(DRWenum mode) const = 0;
};
