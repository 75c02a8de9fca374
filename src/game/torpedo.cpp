#include "game/torpedo.h"

#include "3d/animated_sprite.h"
#include "3d/bounding_box.h"
#include "3d/gfx_factory.h"
#include "3d/util3d.h"
#include "game/bolt.h"
#include "game/explosion.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/game_sound.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int no_id_yet = 0;
constexpr int warmup_time = 1000;  // milliseconds of straight flight
constexpr float turn_rate = 90;    // degrees per second
constexpr float half_width = 2;
constexpr float half_length = 10;
constexpr float explosion_size = 20;
constexpr short explosion_loudness = 50;

/// Milliseconds for a way at a speed; what would not fit is the longest time that does.
int flightTime(unsigned long way, float speed) {
    constexpr double longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(static_cast<double>(way) * 1000 / speed, longest));
}

}  // namespace

Torpedo::Torpedo(const XMLElement& node)
    : _StarshipPart(PRT_TORPEDO), _MovingGameObject(no_id_yet, GO_TORPEDO) {
    checkElement(node, "Torpedo");
    setName(node.getAttributeAsString("name"));
    setMass(readNumber(node, "mass"));
    setPower(readNumber(node, "power"));
    setSize(readNumber(node, "size"));
    setVelocity(static_cast<float>(readNumber(node, "speed", 1)));
    setRange(readNumber(node, "range"));
    setCloakCat(static_cast<unsigned int>(readInt(node, "cloak_cat")));
    setLoseDist(readNumber(node, "lose_dist"));
    energy = static_cast<float>(getPower());
    ttl = flightTime(range, getVelocity());
    end_warmup = ttl - warmup_time;
}

Torpedo::Torpedo(const Torpedo& other)
    : _StarshipPart(other),
      _MovingGameObject(other),
      range(other.range),
      cloak_cat(other.cloak_cat),
      lose_dist(other.lose_dist),
      energy(other.energy),
      ttl(other.ttl),
      end_warmup(other.end_warmup),
      update_itvl(other.update_itvl),
      target(other.target) {}

Torpedo::~Torpedo() = default;

void Torpedo::activateCamera() {
    addCamera(CAM_TORPEDO, CPOS_FRONT, Vector4(0, 0.2f, -10, 1));
    getCamera(CPOS_FRONT)->rotateX(-5);
}

void Torpedo::update(int time_diff) {
    if (explosion) {
        if (!explosion->updateAnimation(time_diff)) throw TorpedoFadedEvent();
        return;
    }
    ttl -= time_diff;
    if (energy <= 0 || ttl <= 0) burst();
    if (ttl <= end_warmup) home(time_diff);
    move(time_diff);
}

void Torpedo::burst() {
    explosion = std::make_unique<AnimatedSprite>(
        GFX_Factory::getInstance()->getAnimatedSprite("torpedo_explosion"));
    GameSound::getInstance()->playSound(SND_EXPLOSION, "../data/torpedo_explode.wav", getPosition(),
                                        explosion_loudness, 0);
}

void Torpedo::home(int time_diff) {
    const _GameObject* goal = target ? *target : nullptr;
    if (!goal) return;

    Vector4 direction = getOrientation();
    const Vector4 to_target(getPosition(), goal->getPosition());
    const float angle = util3d::rad2deg(util3d::angle(to_target, direction).total);
    if (!std::isfinite(angle)) return;  // it is there

    Vector4 axis = to_target ^ direction;
    if (axis.getLength() == 0) {
        if (to_target * direction > 0) return;
        axis = getUp();  // exactly behind: one way round is as good as the other
    }
    const float max_angle = static_cast<float>(time_diff) * turn_rate / 1000;
    direction.rotate(axis, std::min(angle, max_angle));
    setOrientation(direction);
    setHeading(direction);
}

_BoundingObject* Torpedo::computeBoundingObject() const {
    return new BoundingBox(Point4(), Vector4(half_width, 0, 0, 1), Vector4(0, half_width, 0, 1),
                           Vector4(0, 0, half_length, 1));
}

void Torpedo::drawModel(DRWenum) const {
    if (explosion) {
        drawObjectExplosion(*explosion, getPosition(), explosion_size);
        return;
    }
    if (energy != static_cast<float>(getPower())) return;

    drawBolt(ColorRGB(0, 0, 1), 4, half_length);
}
