#pragma once

#include "game/blank_monitors.h"
#include "game/starship_part.h"

class XMLElement;

/// Hides its ship from all radars of a lower category, at all times and at no cost. Nothing but a
/// radar looks at it.
class Cloak : public _StarshipPart, public BlankMonitors {
public:
    /// Reads a "Cloak" element. Throws Exception on any other element.
    explicit Cloak(const XMLElement& node);

    unsigned int getCloakCat() const { return cloak_cat; }

private:
    unsigned int cloak_cat = 0;
};
