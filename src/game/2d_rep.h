#pragma once

#include "game/drawable.h"

class ColorRGBA;

/// What can appear on a multi-function display of the cockpit.
class _2D_Rep {
public:
    virtual ~_2D_Rep() = default;

    /// Draws into a rectangle of real pixels under the current 2D overlay, in the foreground,
    /// background and highlight colours of the display.
    virtual void drawMonitor(float x, float y, float w, float h, const ColorRGBA& fg,
                             const ColorRGBA& bg, const ColorRGBA& hl, DRWenum mode) const = 0;
};
