#pragma once

#include "game/blank_monitors.h"
#include "game/starship_part.h"

class XMLElement;

/// A ship's power plant: turns fuel into charge of the battery that it contains. Shield and weapons
/// live on the battery. A ship starts with a tenth of its charge.
class Reactor : public _StarshipPart, public BlankMonitors {
public:
    /// Reads a "Reactor" element. Throws Exception on any other element.
    explicit Reactor(const XMLElement& node);

    /// Charges the battery for `time_diff` milliseconds. Throws TankEmptyEvent on an empty tank,
    /// also when the battery is full.
    void update(int time_diff);

    /// Takes up to `amount` from the battery and returns what was taken.
    float drawPower(float amount);
    /// The same, but takes nothing when less than `min` is there.
    float drawPower(float amount, float min);

    /// Highest fuel burn per second.
    unsigned long getConsumption() const { return consumption; }
    /// Battery units gained from 1000 units of fuel.
    unsigned long getEfficiency() const { return efficiency; }
    unsigned long getBatSize() const { return bat_size; }
    float getBatCharge() const { return battery; }

private:
    unsigned long consumption = 0;
    unsigned long efficiency = 0;
    unsigned long bat_size = 0;
    float battery = 0;
};
