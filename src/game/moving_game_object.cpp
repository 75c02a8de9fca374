#include "game/moving_game_object.h"

#include "3d/bounding_object.h"
#include "3d/bounding_sphere.h"

_MovingGameObject::_MovingGameObject(int i, GAMEOBJenum t) : _GameObject(i, t) {}

_MovingGameObject::_MovingGameObject(const _MovingGameObject& other)
    : _GameObject(other), velocity(other.velocity), heading(other.heading) {}

_MovingGameObject::~_MovingGameObject() = default;

const _BoundingObject& _MovingGameObject::getBoundingObject() const {
    if (update_b_obj || !b_obj) {
        if (!model_b_obj) model_b_obj.reset(computeBoundingObject());
        place(*model_b_obj, b_obj);
        update_b_obj = false;
    }
    return *b_obj;
}

void _MovingGameObject::resetBoundingObject() {
    model_b_obj.reset();
    update_b_obj = true;
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
