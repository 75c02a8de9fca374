#pragma once

#include "game/3d_rep.h"
#include "game/starship_part.h"

#include <memory>

class Cockpit;

/// The root of a ship's tree of parts and its link to the ship: whatever climbs the tree, such as
/// the question where a part is or the news that it has exploded, ends here. Carries the cockpit, a
/// copy of its own in every hull.
class Hull : public _StarshipPart, public _3D_Rep {
public:
    ~Hull() override;

    Cockpit* getCockpit() const { return cockpit.get(); }

protected:
    friend class PartStore;

    /// Reads a "Hull" element: body, slots and the one cockpit. Throws Exception on any other, and
    /// on more or less than one cockpit.
    explicit Hull(const XMLElement& node);
    Hull(const Hull& other);

    /// The cockpit serves the same ship.
    void setParentShip(Starship* ship) override;

private:
    friend class Starship;

    /// The pose of the ship; the origin for a hull without one.
    Point4 getPosition() const override;
    Vector4 getOrientation() const override;
    Vector4 getUp() const override;
    Matrix4 getParentShipMatrix() const override;

    /// Dooms the ship: its control is reset and locked for good, and a view through one of its
    /// cameras changes to one from outside.
    void resetStarshipControl() override;
    /// As any part; the hull's own explosion makes the whole ship burst.
    void update(unsigned int timediff) override;
    bool isPerhapsHit(const _BoundingObject& object, float& damage) override;

    void readCockpit(const XMLElement& node);

    std::unique_ptr<Cockpit> cockpit;
};
