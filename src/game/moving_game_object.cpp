#include "game/moving_game_object.h"

#include "3d/bounding_object.h"
#include "3d/bounding_sphere.h"

_MovingGameObject::_MovingGameObject(int i, GAMEOBJenum t) : _GameObject(i, t) {}

_MovingGameObject::_MovingGameObject(const _MovingGameObject& other)
    : _GameObject(other), velocity(other.velocity), heading(other.heading) {}

_MovingGameObject::~_MovingGameObject() = default;

const _BoundingObject& _MovingGameObject::getBoundingObject() const {
    if (update_b_obj || !b_obj) {
        b_obj = place(std::unique_ptr<_BoundingObject>(computeBoundingObject()));
        update_b_obj = false;
    }
    return *b_obj;
}

BoundingSphere _MovingGameObject::getBoundingSphere() const {
    return BoundingSphere(getPosition(), (b_obj ? *b_obj : getBoundingObject()).getRadius());
}

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
