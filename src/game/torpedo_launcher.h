#pragma once

#include "game/3d_rep.h"
#include "game/starship_part.h"

#include <string>

class Torpedo;
class XMLElement;

/// A weapon that holds a stock of torpedoes of one type. Each launch takes `power` units of charge
/// from the battery, all or nothing. Mounted on a wing or a hull; the ship's control fires it.
class TorpedoLauncher : public _StarshipPart, public _3D_Rep {
public:
    /// Reads a "TorpedoLauncher" element. Throws Exception on any other element.
    explicit TorpedoLauncher(const XMLElement& node);

    /// Launches a torpedo at the ship's target, or straight ahead without one. The caller owns it;
    /// null when the stock or the charge does not suffice. With a stock the torpedo is used up in
    /// any case. Throws PartStoreException when the catalogue has no torpedo of this type.
    Torpedo* fire();

    /// Torpedoes left.
    int getLoad() const { return load; }
    /// How far away a target may be, in world units.
    unsigned int getRange() const { return range; }
    /// The part name of the torpedoes.
    std::string getTorpedoType() const { return t_type; }
    /// Adds to the stock, also beyond what the launcher held when it was new.
    void addTorpedo(unsigned int n);

protected:
    void setTorpedoType(const std::string& type) { t_type = type; }

private:
    bool drawLaunchPower();

    std::string t_type;
    int load = 0;
    [[maybe_unused]] int max_load = 0;
    unsigned int range = 0;
    std::string sound_file;
};
