#pragma once

#include "game/3d_rep.h"
#include "game/starship_part.h"

#include <string>

class Laser;
class XMLElement;

/// A weapon that turns battery energy into laser shots: `power` units of charge for each, all or
/// nothing. Mounted on a wing or a hull; the ship's control fires it.
class Cannon : public _StarshipPart, public _3D_Rep {
public:
    /// Reads a "Cannon" element. Throws Exception on any other element.
    explicit Cannon(const XMLElement& node);

    /// Laser energy for 1000 units of battery energy.
    unsigned long getEfficiency() const { return efficiency; }

    /// Fires and returns the shot, which the caller owns. It starts clear of the cannon. With too
    /// little charge in the battery its energy is 0, and it fades at once.
    Laser* fire();

protected:
    void setEfficiency(unsigned long e) { efficiency = e; }

private:
    unsigned long efficiency = 0;
    std::string sound_file;
};
