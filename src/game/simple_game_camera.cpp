#include "game/simple_game_camera.h"

SimpleGameCamera::SimpleGameCamera(const Point4& pos, const Vector4& u, const Point4& t)
    : position(pos), up(u), target(t) {}

void SimpleGameCamera::activate() const {
    lookAt(position, target, up);
}
