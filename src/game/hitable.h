#pragma once

#include "game/damageable.h"

class _BoundingObject;

/// What a projectile can hit.
class _Hitable : public _Damageable {
public:
    virtual ~_Hitable() = default;

    /// Whether a projectile with the bounds `o` hits. `energy` comes in as what the projectile can
    /// still do, and goes out as what is left of it.
    virtual bool isPerhapsHit(const _BoundingObject& o, float& energy) = 0;
};
