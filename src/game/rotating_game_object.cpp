#include "game/rotating_game_object.h"

#include "3d/util3d.h"

_RotatingGameObject::_RotatingGameObject(int i, GAMEOBJenum t) : _GameObject(i, t) {}

void _RotatingGameObject::rotate(int time_diff) {
    const float degrees = static_cast<float>(time_diff) * velocity * 360 / 5000;
    Vector4 orientation = getOrientation().rotateY(util3d::deg2rad(degrees));
    setOrientation(orientation.normalize());  // hours of turning must not stretch the planet
}

void _RotatingGameObject::update(int time_diff) {
    update_b_obj = true;
    rotate(time_diff);
}
