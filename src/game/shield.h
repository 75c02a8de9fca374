#pragma once

#include "game/3d_rep.h"
#include "game/blank_monitors.h"
#include "game/starship_part.h"

class XMLElement;

/// A store of energy in a sphere around the ship: takes the energy of what hits the ship, one for
/// one, leaks all the time, and recharges from the battery. A new shield is half full. Not mounted
/// in a slot: the ship holds it.
class Shield : public _StarshipPart, public BlankMonitors, public _3D_Rep {
public:
    /// Reads a "Shield" element. Throws Exception on any other element.
    explicit Shield(const XMLElement& node);

    /// Shield energy gained from 1000 units of battery energy.
    unsigned int getEfficiency() const { return efficiency; }
    unsigned int getMaxEnergy() const { return max_energy; }
    float getCurrentEnergy() const { return current_energy; }
    /// Shield energy that leaks away per second.
    unsigned int getLoss() const { return loss; }

    /// Limits what the shield draws to `f` thousandths of its nominal power, per second.
    void setUsedPower(float f);

    /// Whether a projectile with the bounds `o` reaches the shield. One that does loses of its
    /// energy `e` what the shield can take.
    bool testHit(const _BoundingObject& o, float& e);

    using _3D_Rep::update;
    /// Leaks and recharges for `timediff` milliseconds.
    void update(int timediff);

    /// A glow around the ship, the fainter the weaker the shield; nothing at a tenth of its
    /// strength and below.
    void draw(DRWenum mode) const override;

protected:
    void setEfficiency(unsigned int e) { efficiency = e; }
    void setMaxEnergy(unsigned int e) { max_energy = e; }
    void setLoss(unsigned int l) { loss = l; }

    /// Fits the sphere around the ship, whose bounds must be finished.
    void setParentShip(Starship* s) override;

private:
    unsigned int efficiency = 0;
    unsigned int max_energy = 0;
    unsigned int loss = 0;
    float current_energy = 0;
    float used_power = 0;  ///< battery energy per second that the shield takes at most
    float bias_power = 0;  ///< battery energy per second that just makes up for the loss
};
