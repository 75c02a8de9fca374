#include "game/laser.h"

#include "3d/bounding_box.h"
#include "game/bolt.h"
#include "game/game_event.h"

namespace {

constexpr float life_time = 2000;  // milliseconds until all energy is lost
constexpr int no_id_yet = -1;
constexpr float half_width = 0.4f;
constexpr float half_length = 7;

}  // namespace

Laser::Laser(const _3DObject* obj, float energy, const Point4& pos, const Vector4& dir,
             const Vector4& up, float speed)
    : _MovingGameObject(no_id_yet, GO_LASER), energy(energy), loss(energy / life_time), obj(obj) {
    setPosition(pos);
    setOrientation(dir);
    setUp(up);
    setHeading(dir);
    setVelocity(speed);
    getBoundingObject();  // its size can be asked for from now on
}

void Laser::update(int time_diff) {
    move(time_diff);
    const float lost = static_cast<float>(time_diff) * loss;
    if (lost >= energy) throw LaserFadedEvent();
    energy -= lost;
}

_BoundingObject* Laser::computeBoundingObject() const {
    return new BoundingBox(Point4(), Vector4(half_width, 0, 0, 1), Vector4(0, half_width, 0, 1),
                           Vector4(0, 0, half_length, 1));
}

void Laser::drawModel(DRWenum) const {
    drawBolt(ColorRGB(1, 0, 0), 2, half_length);
}
