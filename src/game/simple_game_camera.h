#pragma once

#include "game/game_camera_interface.h"

/// A camera that stands still and looks at a fixed point. The cockpit's viewers make one for each
/// picture that they take.
class SimpleGameCamera : public _GameCameraInterface {
public:
    SimpleGameCamera(const Point4& pos, const Vector4& u, const Point4& t);

    Point4 getPosition() const override { return position; }
    void activate() const override;

    Vector4 getUp() const override { return up; }
    Point4 getTarget() const override { return target; }
    Vector4 getOrientation() const override { return {position, target}; }

private:
    Point4 position;
    Vector4 up;
    Point4 target;
};
