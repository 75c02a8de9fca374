#pragma once

#include "game/game_object.h"

#include <memory>

/// An object that flies: a ship or a shot. It moves along its heading, which need not be where it
/// faces.
class _MovingGameObject : public _GameObject {
public:
    _MovingGameObject(int i, GAMEOBJenum t);
    ~_MovingGameObject() override;

    /// Bounds in the object's own coordinates, from which its bounds in the world are made. Asked
    /// for once, and again after resetBoundingObject(). The caller owns the result.
    virtual _BoundingObject* computeBoundingObject() const = 0;

    const _BoundingObject& getBoundingObject() const override;
    BoundingSphere getBoundingSphere() const override;
    void update(int time_diff) override;

    /// The direction of travel, always of length 1. A vector without length leaves it as it is.
    void setHeading(const Vector4& v);
    Vector4 getHeading() const { return heading; }
    /// World units per second along the heading.
    void setVelocity(float v) { velocity = v; }
    float getVelocity() const { return velocity; }

protected:
    /// The copy builds bounds of its own.
    _MovingGameObject(const _MovingGameObject& other);

    /// To be called when computeBoundingObject() would now give something else.
    void resetBoundingObject();

    /// Flies on for `time_diff` milliseconds.
    void move(int time_diff);

private:
    mutable std::unique_ptr<_BoundingObject> b_obj;        ///< in world coordinates
    mutable std::unique_ptr<_BoundingObject> model_b_obj;  ///< in the object's own
    float velocity = 0;
    Vector4 heading{0, 0, 1, 1};
    mutable bool update_b_obj = true;  ///< the bounds are stale
};
