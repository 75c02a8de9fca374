#pragma once

#include "game/game_object.h"

#include <memory>

/// An object that stays in its place and turns about the world's y axis.
class _RotatingGameObject : public _GameObject {
public:
    _RotatingGameObject(int i, GAMEOBJenum t);
    ~_RotatingGameObject() override;

    /// Bounds in the object's own coordinates, from which its bounds in the world are made. Asked
    /// for once. The caller owns the result.
    virtual _BoundingObject* computeBoundingObject() const = 0;

    const _BoundingObject& getBoundingObject() const override;
    BoundingSphere getBoundingSphere() const override;
    void update(int time_diff) override;

    /// Turns the object for `time_diff` milliseconds.
    void rotate(int time_diff);
    /// One unit is a full turn in 5000 milliseconds.
    float getVelocity() const { return velocity; }

protected:
    void setVelocity(float v) { velocity = v; }

    mutable bool update_b_obj = true;  ///< the bounds are stale

private:
    float velocity = 0;
    mutable std::unique_ptr<_BoundingObject> b_obj;        ///< in world coordinates
    mutable std::unique_ptr<_BoundingObject> model_b_obj;  ///< in the object's own
};
