#pragma once

#include "game/game_object.h"

/// An object that stays in its place and turns about the world's y axis.
class _RotatingGameObject : public _GameObject {
public:
    _RotatingGameObject(int i, GAMEOBJenum t);

    void update(int time_diff) override;

    /// Turns the object for `time_diff` milliseconds.
    void rotate(int time_diff);
    /// One unit is a full turn in 5000 milliseconds.
    float getVelocity() const { return velocity; }

protected:
    void setVelocity(float v) { velocity = v; }

private:
    float velocity = 0;
};
