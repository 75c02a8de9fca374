#pragma once

#include "game/cockpit_bar_control.h"

/// The bar of the ship's battery: its charge.
class BatteryInterface : public _CockpitBarControl {
public:
    /// Reads a "BatteryInterface" element. Throws Exception on any other element.
    BatteryInterface(const XMLElement& node, Cockpit* owner);

    std::unique_ptr<_CockpitControl> clone() const override;

protected:
    void printData(float, float, float, float) const override {}
    float getData() const override;
};
