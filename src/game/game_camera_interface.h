#pragma once

#include "3d/camera_interface.h"
#include "3d/point.h"
#include "3d/vector.h"

class _GameObject;

/// What the flight needs to know of a camera beyond its picture: which way it looks, what is up on
/// the screen, and which object it rides on. Billboards and positional sound ask the current one.
class _GameCameraInterface : public _CameraInterface {
public:
    virtual Vector4 getUp() const = 0;
    /// The world point looked at. Throws Exception where a camera has none.
    virtual Point4 getTarget() const = 0;
    virtual Vector4 getOrientation() const = 0;
    /// The object that the camera rides on, or null for a camera that stands in space.
    virtual _GameObject* getGameObject() const { return nullptr; }

    /// Pitches by `phi` degrees; a camera that cannot be turned ignores it.
    virtual void rotateX(float /*phi*/) {}
    /// Yaws by `phi` degrees; a camera that cannot be turned ignores it.
    virtual void rotateY(float /*phi*/) {}

protected:
    /// The view that all game cameras share: 60 degrees, from 1 to 10000 units, no aspect yet.
    _GameCameraInterface() : _CameraInterface(60, -1, 1, 10000) {}
};
