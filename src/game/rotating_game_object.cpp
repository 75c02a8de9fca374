#include "game/rotating_game_object.h"

#include "3d/bounding_object.h"
#include "3d/bounding_sphere.h"
#include "3d/util3d.h"

_RotatingGameObject::_RotatingGameObject(int i, GAMEOBJenum t) : _GameObject(i, t) {}

_RotatingGameObject::~_RotatingGameObject() = default;

const _BoundingObject& _RotatingGameObject::getBoundingObject() const {
    if (update_b_obj || !b_obj) {
        if (!model_b_obj) model_b_obj.reset(computeBoundingObject());
        place(*model_b_obj, b_obj);
        update_b_obj = false;
    }
    return *b_obj;
}

BoundingSphere _RotatingGameObject::getBoundingSphere() const {
    return BoundingSphere(getPosition(), (b_obj ? *b_obj : getBoundingObject()).getRadius());
}

void _RotatingGameObject::rotate(int time_diff) {
    const float degrees = static_cast<float>(time_diff) * velocity * 360 / 5000;
    setOrientation(getOrientation().rotateY(util3d::deg2rad(degrees)));
}

void _RotatingGameObject::update(int time_diff) {
    update_b_obj = true;
    rotate(time_diff);
}
