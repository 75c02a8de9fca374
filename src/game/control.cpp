#include "game/control.h"

#include "3d/point.h"
#include "game/cannon.h"
#include "game/engine.h"
#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/starship.h"
#include "game/torpedo_launcher.h"

#include <cmath>
#include <list>

namespace {

constexpr float select_range = 500;  // world units ahead in which an object can be selected

}  // namespace

void _Control::reset() {
    throttle = 0;
    fired = false;
}

void _Control::update(int time_diff) {
    if (locked) return;

    new_orientation = ship->getOrientation();
    new_up = ship->getUp();
    updateAI(time_diff);

    if (select_new_object) selectObject();
    select_new_object = false;
    steer();
    thrust(time_diff);
    if (fired) shoot();
}

/// The ship flies where it points: there is no drift.
void _Control::steer() {
    ship->setUp(new_up);
    ship->setOrientation(new_orientation);
    ship->setHeading(new_orientation);
}

void _Control::thrust(int time_diff) {
    Engine* engine = ship->getEngine();
    if (!engine) return;

    try {
        ship->setVelocity(engine->getVelocity(ship->getVelocity(), throttle, time_diff));
    } catch (const TankEmptyEvent&) {
        reset();
        lock();
    }
}

void _Control::shoot() {
    fired = false;
    if (weapon_mode == WP_LASER)
        fireLasers();
    else
        fireTorpedo();
}

void _Control::fireLasers() {
    std::list<Laser*> lasers;
    for (const auto& cannon : ship->cannons)
        if (cannon) lasers.push_back(cannon->fire());
    throw LaserFiredEvent(lasers);
}

/// Nothing leaves a ship without a launcher, nor a launcher without stock or charge.
void _Control::fireTorpedo() {
    TorpedoLauncher* launcher = ship->getTorpedoLauncher();
    if (!launcher) return;
    if (Torpedo* torpedo = launcher->fire()) throw TorpedoFiredEvent(torpedo);
}

bool _Control::isDirection(const Vector4& v) {
    const float length = v.getLength();
    return length > 0 && std::isfinite(length);
}

ObjectSlot _Control::findAhead(float range) const {
    const Vector4 orientation = ship->getOrientation();
    if (!ship->getGalaxy() || !isDirection(orientation)) return {};

    const Point4 start = ship->getPosition();
    const Point4 end = start + Vector4(orientation).normalize() * range;
    return ship->getGalaxy()->getObjectByLine(ship, start, end);
}

void _Control::select(const ObjectSlot& object) {
    ship->selected_object = object;
}

void _Control::selectObject() {
    const ObjectSlot found = findAhead(select_range);
    if (found && *found) select(found);
}
