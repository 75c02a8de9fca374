#pragma once

#include "game/cockpit_control.h"

/// The way in which a bar grows.
enum CPBCTRLDIRenum {
    CPBCTRLDIR_LEFT = 0,
    CPBCTRLDIR_RIGHT = 1,
    CPBCTRLDIR_UP = 2,
    CPBCTRLDIR_DOWN = 3,
};

/// An instrument that shows how full something is: a bar that grows through the mask and shades
/// from the colour of empty to the colour of full. Only a full bar reaches the latter at its tip.
class _CockpitBarControl : public _CockpitControl {
protected:
    /// Throws Exception on an element that is no bar, and on a direction that there is not.
    _CockpitBarControl(const XMLElement& node, Cockpit* owner);

    void drawControl(float x, float y, float w, float h) const override;
    /// Draws what stands on the bar.
    virtual void printData(float x, float y, float w, float h) const = 0;
    /// From 0 for empty to 1 for full.
    virtual float getData() const = 0;

private:
    ColorRGBA start_color;
    ColorRGBA end_color;
    CPBCTRLDIRenum direction;
};
