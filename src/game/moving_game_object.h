#pragma once

#include "game/game_object.h"

/// An object that flies: a ship or a shot. It moves along its heading, which need not be where it
/// faces.
class _MovingGameObject : public _GameObject {
public:
    _MovingGameObject(int i, GAMEOBJenum t);

    void update(int time_diff) override;

    /// The direction of travel, always of length 1. A vector without length leaves it as it is.
    void setHeading(const Vector4& v);
    Vector4 getHeading() const { return heading; }
    /// World units per second along the heading.
    void setVelocity(float v) { velocity = v; }
    float getVelocity() const { return velocity; }

protected:
    _MovingGameObject(const _MovingGameObject& other);

    /// Flies on for `time_diff` milliseconds.
    void move(int time_diff);

private:
    float velocity = 0;
    Vector4 heading{0, 0, 1, 1};
};
