#pragma once

#include "game/3d_rep.h"
#include "game/starship_part.h"

/// The root of a ship's tree of parts and its link to the ship: whatever climbs the tree, such as
/// the question where a part is or the news that it has exploded, ends here.
class Hull : public _StarshipPart, public _3D_Rep {
protected:
    friend class PartStore;

    /// Reads a "Hull" element: body and slots. Throws Exception on any other.
    explicit Hull(const XMLElement& node);
    Hull(const Hull& other) = default;

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
};
