#pragma once

#include "game/blank_monitors.h"
#include "game/starship_part.h"

class XMLElement;

/// A ship's fuel store. The reactor and the engine draw from it, in that order.
/// The last drop is always delivered; only the draw after it finds the tank empty.
class Tank : public _StarshipPart, public BlankMonitors {
public:
    /// Reads a "Tank" element. Throws Exception on any other element.
    explicit Tank(const XMLElement& node);

    /// Takes up to `f` units of fuel and returns what was delivered.
    /// Throws TankEmptyEvent when the tank was empty before the call.
    float drawFuel(float f);

    float getFuel() const { return fuel; }
    float getCapacity() const { return static_cast<float>(capacity); }

private:
    unsigned int capacity;
    float fuel;
};
