#pragma once

#include "game/cockpit_control.h"
#include "game/radar.h"

/// A scope: plots what the ship's radar sees in one half of space, as points in colours that tell
/// the kind of object, the fainter the farther. The ship's target is a larger yellow point.
class RadarInterface : public _CockpitControl {
public:
    /// Reads a "RadarInterfaceFront" or "RadarInterfaceBack" element. Throws Exception on any
    /// other.
    RadarInterface(const XMLElement& node, Cockpit* owner);

    std::unique_ptr<_CockpitControl> clone() const override;

protected:
    /// A ship without radar has an empty scope; without a ship there is an error line.
    void drawControl(float x, float y, float w, float h) const override;

private:
    RADARenum type;
};
