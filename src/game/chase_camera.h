#pragma once

#include "game/game_camera_interface.h"

/// A camera that stands still in space and turns to keep an object in view: what the player sees of
/// a ship that blows up. Once the object has died it goes on looking at the spot.
class ChaseCamera : public _GameCameraInterface {
public:
    /// Throws Exception when `object` is null.
    ChaseCamera(_GameObject* object, const Point4& pos);

    Point4 getPosition() const override { return c_pos; }
    /// Logs an error and leaves the view alone while no aspect is set.
    void activate() const override;

    Vector4 getUp() const override { return c_up; }
    Point4 getTarget() const override;
    Vector4 getOrientation() const override { return {c_pos, getTarget()}; }

    /// The object looked at, or null once the camera is frozen.
    _GameObject* getTargetObject() const { return target; }
    /// Lets go of the object and keeps looking at where it is now. The dying object calls it.
    void freeze();

private:
    _GameObject* target;
    Point4 c_pos;
    mutable Vector4 c_up;
    bool update = true;
    Point4 last_position;  // of the target, from the moment of the freeze on
};
