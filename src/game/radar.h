#pragma once

#include "3d/point.h"
#include "game/blank_monitors.h"
#include "game/starship_part.h"

#include <list>

class _GameObject;
class XMLElement;

/// The half of space that is asked for.
enum RADARenum {
    RADAR_FRONT = 0,
    RADAR_BACK = 1,
};

/// One detected object.
struct radar_obj_t {
    /// x and y: the components of the direction to the object, of length 1, along the ship's left
    /// and up, with x mirrored: to the right is positive. z: closeness, 1 at the ship and 0 at the
    /// end of the range.
    Point4 pos;
    unsigned int id;
};

/// A ship's sight beyond its windows: lists what is in range and not hidden by a cloak.
class Radar : public _StarshipPart, public BlankMonitors {
public:
    /// Reads a "Radar" element. Throws Exception on any other element.
    explicit Radar(const XMLElement& node);

    /// How far it sees, in world units.
    unsigned long getRange() const { return range; }
    /// The highest category of cloak that it sees through.
    unsigned int getCloakCat() const { return cloak_cat; }

    /// What it sees of the ship's galaxy, by id. An object exactly abeam, or at the ship's own
    /// place, is in both halves.
    std::list<radar_obj_t> detectObjects(RADARenum mode) const;

private:
    bool isHidden(const _GameObject& object) const;

    unsigned long range = 0;
    unsigned int cloak_cat = 0;
};
