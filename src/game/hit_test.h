#pragma once

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"

/// Whether a projectile with the bounds `shot` meets `body`. The test is the body's own, for the
/// kind of bounds that the projectile has.
inline bool isHit(const _BoundingObject& body, const _BoundingObject& shot) {
    if (shot.getType() == BOUNDING_SPHERE) {
        return body.isIntersected(static_cast<const BoundingSphere&>(shot));
    }
    return body.isIntersected(static_cast<const BoundingBox&>(shot));
}
