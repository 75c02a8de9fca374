#pragma once

#include "game/3d_rep.h"
#include "game/blank_monitors.h"
#include "game/starship_part.h"

#include <string>

class XMLElement;

/// A ship's drive: brings the speed to the throttle's share of the top speed, at the same rate up
/// and down, and burns fuel for as long as the throttle is open.
class Engine : public _StarshipPart, public _3D_Rep, public BlankMonitors {
public:
    /// Reads an "Engine" element. Throws Exception on any other element.
    explicit Engine(const XMLElement& node);

    /// The speed after `time_diff` milliseconds at `throttle` percent, coming from `current`; pays
    /// the fuel for them. A tank that runs dry on the way still gives the whole frame's thrust.
    /// Throws TankEmptyEvent on an empty tank.
    float getVelocity(float current, unsigned int throttle, int time_diff);

    /// File name of the sound loop of the flight.
    std::string getSound() const { return sound; }
    unsigned long getEfficiency() const { return efficiency; }
    /// World units per second.
    unsigned long getVMax() const { return v_max; }
    /// World units per second per second.
    unsigned long getAMax() const { return a_max; }
    /// Fuel per percent of throttle per second.
    float getCost() const { return cost; }

    void draw(DRWenum mode) const override;

private:
    std::string sound;
    unsigned long efficiency = 0;
    unsigned long v_max = 0;
    unsigned long a_max = 0;
    float cost = 0;
};
