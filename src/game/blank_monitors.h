#pragma once

#include "game/2d_mini_rep.h"
#include "game/2d_rep.h"

/// The monitor side of a part that has nothing of its own to show.
class BlankMonitors : public _2D_Rep, public _2D_MiniRep {
public:
    void drawMonitor(float, float, float, float, const ColorRGBA&, const ColorRGBA&,
                     const ColorRGBA&, DRWenum) const override {}
    void drawMiniMonitor(float, float, float, float) const override {}
};
