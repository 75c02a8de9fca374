#pragma once

#include "game/cockpit_bar_control.h"

/// The bar of the ship's tank: the fuel that is left.
class TankInterface : public _CockpitBarControl {
public:
    /// Reads a "TankInterface" element. Throws Exception on any other element.
    TankInterface(const XMLElement& node, Cockpit* owner);

    std::unique_ptr<_CockpitControl> clone() const override;

protected:
    void printData(float, float, float, float) const override {}
    float getData() const override;
};
