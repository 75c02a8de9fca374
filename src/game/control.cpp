#include "game/control.h"

#include "3d/point.h"
#include "game/cannon.h"
#include "game/engine.h"
#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/starship.h"

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
    if (weapon_mode == WP_LASER) fireLasers();
}

void _Control::fireLasers() {
    std::list<Laser*> lasers;
    for (const auto& cannon : ship->cannons)
        if (cannon) lasers.push_back(cannon->fire());
    throw LaserFiredEvent(lasers);
}

void _Control::selectObject() {
    if (!ship->getGalaxy()) return;

    const Point4 start = ship->getPosition();
    const Point4 end = start + ship->getOrientation().normalize() * select_range;
    const ObjectSlot found = ship->getGalaxy()->getObjectByLine(ship, start, end);
    if (found && *found) ship->selected_object = found;
}
