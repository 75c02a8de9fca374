#pragma once

/// What can appear on a small display of the cockpit.
class _2D_MiniRep {
public:
    virtual ~_2D_MiniRep() = default;

    /// Draws into a rectangle of real pixels under the current 2D overlay.
    virtual void drawMiniMonitor(float x, float y, float w, float h) const = 0;
};
