#pragma once

#include "game/cockpit_bar_control.h"

/// The bar of the throttle: the speed that the pilot wants, not the one that the ship has.
class Speedometer : public _CockpitBarControl {
public:
    /// Reads a "Speedometer" element. Throws Exception on any other element.
    Speedometer(const XMLElement& node, Cockpit* owner);

    std::unique_ptr<_CockpitControl> clone() const override;

protected:
    void printData(float, float, float, float) const override {}
    float getData() const override;
};
