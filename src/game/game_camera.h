#pragma once

#include "game/game_camera_interface.h"

#include <ostream>

/// A camera that rides on a game object: it looks along the object's orientation from a place in
/// the object's own frame, and can be turned away by two angles. It follows the object by
/// reference, so the object owns it and outlives it.
class GameCamera : public _GameCameraInterface {
public:
    /// `pos`, `ori` and `up` are the object's own, read at every activation; `pos_o` is the
    /// camera's place in the object's frame.
    GameCamera(const Point4& pos, const Vector4& ori, const Vector4& up, const Vector4& pos_o);

    /// The world position as of the last activation; the origin before the first.
    Point4 getPosition() const override { return c_pos; }
    /// Logs an error and leaves the view alone while no aspect is set.
    void activate() const override;

    Vector4 getUp() const override { return up_ref; }
    /// Always throws Exception: this camera looks in a direction, at no point.
    Point4 getTarget() const override;
    Vector4 getOrientation() const override { return orientation_ref; }
    _GameObject* getGameObject() const override { return obj; }

    /// Looks up by `phi` degrees; above 360 the sum starts again from 0.
    void rotateX(float phi) override;
    /// Looks to the left by `phi` degrees; above 360 the sum starts again from 0.
    void rotateY(float phi) override;

    void setGameObject(_GameObject* object) { obj = object; }
    void setPositionOffset(const Vector4& offset) { pos_off = offset; }
    /// Turns the camera, as it stands on the object now, towards the world point `t`: yaw within
    /// 180 degrees to either side, pitch within 90.
    void setTarget(const Point4& t);

    friend std::ostream& operator<<(std::ostream& out, const GameCamera& camera);

private:
    Point4 placeInWorld() const;

    const Point4& pos_ref;
    Vector4 pos_off;
    const Vector4& orientation_ref;
    const Vector4& up_ref;
    mutable Point4 c_pos;
    float phi_x = 0;
    float phi_y = 0;
    _GameObject* obj = nullptr;
};
