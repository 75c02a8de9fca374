#include "game/chase_camera.h"

#include "3d/util3d.h"
#include "game/game_object.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

namespace {

constexpr float no_length = 1e-6f;

/// The view straight along the up vector needs another.
Vector4 upFor(const Vector4& view, const Vector4& up) {
    Vector4 along = view;
    Vector4 upright = up;
    if ((along.normalize() ^ upright.normalize()).getLength() > no_length) return up;
    return util3d::perpendicular(along);
}

}  // namespace

ChaseCamera::ChaseCamera(_GameObject* object, const Point4& pos)
    : target(object), c_pos(pos), c_up(0, 1, 0, 1) {
    if (!object) throw Exception("ChaseCamera::ChaseCamera: null pointer");

    const Vector4 from_origin(pos);
    const Vector4 up = (object->getUp() ^ from_origin) ^ from_origin;
    if (up.getLength() > 0) c_up = up;
}

Point4 ChaseCamera::getTarget() const {
    return update ? target->getPosition() : last_position;
}

void ChaseCamera::freeze() {
    if (!update) return;
    last_position = target->getPosition();
    target = nullptr;
    update = false;
}

void ChaseCamera::activate() const {
    if (!(getAspect() > 0)) {
        logLine(std::cerr, "ERROR (GAME): ", "ChaseCamera::activate: must set aspect first");
        return;
    }
    const Vector4 seen(getTarget());
    Vector4 side = seen ^ c_up;
    if (side.getLength() > 0) c_up = side.normalize() ^ seen;

    lookAt(c_pos, getTarget(), upFor(getOrientation(), c_up));
}
