#include "game/moving_game_object.h"

_MovingGameObject::_MovingGameObject(int i, GAMEOBJenum t) : _GameObject(i, t) {}

_MovingGameObject::_MovingGameObject(const _MovingGameObject& other) = default;

void _MovingGameObject::setHeading(const Vector4& v) {
    if (v.getLength() == 0) return;
    heading = Vector4(v).normalize();
}

void _MovingGameObject::move(int time_diff) {
    update_b_obj = true;
    const float step = static_cast<float>(time_diff) * velocity / 1000;
    setPosition(getPosition() + heading.normalize() * step);
}

void _MovingGameObject::update(int time_diff) {
    move(time_diff);
}
