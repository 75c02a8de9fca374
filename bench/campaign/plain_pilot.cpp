#include "bench/campaign/plain_pilot.h"

#include "game/control.h"
#include "game/galaxy.h"
#include "game/hull.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "game/torpedo_launcher.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <span>
#include <vector>

namespace {

// A player's hands: milliseconds between two keys.
constexpr int left_hand_time = 100;        // turns the ship
constexpr int right_hand_time = 200;       // throttle and weapons
constexpr int choice_time = 1000;          // between two looks around for another target
constexpr int torpedo_flight_time = 3000;  // lasers would shoot it down from behind
constexpr int torpedo_time = 6000;         // to see what the last one did

constexpr float rate_per_degree = 0.4F;
constexpr int fastest_rate = 10;
constexpr float degrees_per_rate = 1 / 0.3F;  // and second

// Distances in world units.
constexpr float danger_distance = 600;  // an enemy as near as that comes before the story
constexpr float laser_distance = 420;
constexpr float nearest_torpedo = 280, farthest_torpedo = 500;  // it flies straight for a second
constexpr float lock_distance = 480;
constexpr float nearest_pass = 70, return_distance = 350;  // beyond the target's size
constexpr float break_off_time = 1.5F;                     // seconds to the nearest pass
constexpr float look_ahead_time = 1.6F;                    // seconds, along the line of fire
constexpr float look_ahead_distance = 50;
constexpr float foresight = 2.5F;     // seconds: how early two ships are seen to meet
constexpr float least_room = 15;      // between two ships that pass
constexpr float clear_of_nose = 60;   // degrees: what is farther off may be left at full speed
constexpr float near_the_nose = 250;  // beyond that distance, speed does no harm

constexpr int evasion_time = 500;  // milliseconds
constexpr int turning_throttle = 30;
constexpr float laser_speed = 350;    // world units per second
constexpr float spare_charge = 150;   // of the battery, left to the shield
constexpr float aiming_slack = 0.8F;  // degrees
constexpr float locking_slack = 2.5F;

/// How wide open the throttle is on the way to a target so far away.
struct Approach {
    float distance;  // beyond the target's size
    int throttle;
};
constexpr Approach pass[] = {{500, 100}, {-1000, 30}};  // never at rest under fire
constexpr Approach stop[] = {{500, 100}, {300, 60}, {200, 40}, {130, 20}, {-1000, 0}};

int chooseThrottle(std::span<const Approach> approaches, float distance) {
    const auto step = std::ranges::find_if(
        approaches, [distance](const Approach& a) { return distance > a.distance; });
    return step == approaches.end() ? 100 : step->throttle;
}

float degrees(double radians) {
    return static_cast<float>(radians * 180 / std::numbers::pi);
}

Starship* asShip(const ObjectSlot& slot) {
    return slot ? dynamic_cast<Starship*>(*slot) : nullptr;
}

/// Whether fire is to be seen on a ship: it is lost, and bursts with whatever touches it.
bool burns(const _3D_Rep& part) {
    if (part.getIntegrity() <= 0) return true;
    for (unsigned int i = 0; i < part.getNumSlots(); ++i)
        if (const _3D_Rep* item = part.getSlot(static_cast<int>(i)).item; item && burns(*item))
            return true;
    return false;
}

/// How many deeds each state of a story is away from the level's happy end.
std::vector<int> countSteps(const std::vector<State_t>& states) {
    constexpr int never = std::numeric_limits<int>::max();
    std::vector<int> steps(states.size(), never);
    for (std::size_t i = 0; i < states.size(); ++i)
        if (states[i].level_end == LE_FINISHED) steps[i] = 0;
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t i = 0; i < states.size(); ++i)
            for (const StoryElement_t& t : states[i].transitions) {
                const int next = steps[static_cast<std::size_t>(t.new_state)];
                if (next == never || next + 1 >= steps[i]) continue;
                steps[i] = next + 1;
                changed = true;
            }
    }
    return steps;
}

}  // namespace

void PlainPilot::enter(const Galaxy& g, const std::set<int>& hostile) {
    galaxy = &g;
    enemies = hostile;
    target.reset();
    breaking_off = false;
}

void PlainPilot::rest(int time_diff) {
    for (int* left : {&left_hand, &right_hand, &next_torpedo, &next_choice, &evasion})
        *left = std::max(0, *left - time_diff);
}

void PlainPilot::flyTo(const Point4& place, int time_diff) {
    rest(time_diff);
    land(place);
}

void PlainPilot::fly(int time_diff) {
    rest(time_diff);
    if (next_choice == 0 || !target || !*target) chooseTarget();
    if (!target || !*target) return;

    if (const ObjectSlot other = findCollision()) {
        obstacle = other;
        evasion = evasion_time;
    }
    if (evasion > 0 && *obstacle)
        evade(**obstacle);
    else if (const Starship* other = asShip(target))
        attack(*other);
    else
        land((*target)->getPosition());
}

PlainPilot::Goals PlainPilot::findGoals() const {
    Goals goals;
    const StoryTeller* story = StoryTeller::getInstance();
    if (!story || story->getStates().empty()) return goals;

    const std::vector<int> steps = countSteps(story->getStates());
    const int here = steps[story->getState()];
    for (const StoryElement_t& t : story->getStates()[story->getState()].transitions) {
        if (steps[static_cast<std::size_t>(t.new_state)] >= here) continue;
        if (t.type == DESTROYED) goals.ships.insert(static_cast<int>(t.id));
        if (t.type == LANDED_ON) goals.planets.insert(static_cast<int>(t.id));
    }
    return goals;
}

ObjectSlot PlainPilot::findNearest(const std::set<int>& ids) const {
    ObjectSlot nearest;
    for (const int id : ids) {
        const ObjectSlot slot = galaxy->getObjectById(id);
        if (!*slot) continue;
        const bool nearer = !nearest || getDistance((*slot)->getPosition()) <
                                            getDistance((*nearest)->getPosition());
        if (nearer) nearest = slot;
    }
    return nearest;
}

void PlainPilot::chooseTarget() {
    next_choice = choice_time;
    const ObjectSlot enemy = findNearest(enemies);
    const Goals goals = findGoals();
    if (enemy && getDistance((*enemy)->getPosition()) < danger_distance)
        target = enemy;
    else if (const ObjectSlot goal = findNearest(goals.ships))
        target = goal;
    else
        target = findNearest(goals.planets);
}

void PlainPilot::attack(const Starship& other) {
    const bool dangerous = enemies.contains(other.getId());
    const float distance = getDistance(other.getPosition()) - other.getSize();
    const float nearest = nearest_pass + break_off_time * getClosingSpeed(other);
    if (dangerous && distance < nearest) breaking_off = true;
    if (!dangerous || distance > return_distance) breaking_off = false;
    if (breaking_off || burns(*other.getHull())) {
        evade(other);
        return;
    }

    const float flight_time = getDistance(other.getPosition()) / laser_speed;
    const Point4 aim =
        other.getPosition() + other.getHeading() * (other.getVelocity() * flight_time);
    steer(aim, getDrift(other));
    launch(other);
    shoot(other, getOffCourse(aim));
    setThrottle(dangerous ? chooseThrottle(pass, distance) : chooseThrottle(stop, distance));
}

/// Turns away to the side on which the other is not.
void PlainPilot::evade(const _GameObject& other) {
    const Vector4 away(other.getPosition(), ship.getPosition());
    const Vector4 right = ship.getOrientation() ^ ship.getUp();
    const float side = away * right < 0 ? -1 : 1;
    steer(ship.getPosition() + Vector4(away).normalize() * 0.5F + right * side);
    const bool ahead = getOffCourse(other.getPosition()) < clear_of_nose &&
                       getDistance(other.getPosition()) < near_the_nose;
    setThrottle(ahead ? turning_throttle : 100);
}

void PlainPilot::land(const Point4& place) {
    steer(place);
    setThrottle(100);
}

ObjectSlot PlainPilot::findCollision() const {
    ObjectSlot first;
    float soonest = foresight;
    for (const auto& [id, slot] : galaxy->getObjects()) {
        const Starship* other = asShip(slot);
        if (!other || other == &ship) continue;
        const Vector4 way(ship.getPosition(), other->getPosition());
        const Vector4 drift = getDrift(*other);
        const float speed_squared = drift * drift;
        const float time =
            speed_squared > 0 ? std::max(0.0F, -(way * drift) / speed_squared) : 0.0F;
        const float room = ship.getSize() + other->getSize() + least_room;
        if (time >= soonest || (way + drift * time).getLength() > room) continue;
        soonest = time;
        first = slot;
    }
    return first;
}

bool PlainPilot::isBlocked(int own_target) const {
    const float reach = look_ahead_distance + ship.getVelocity() * look_ahead_time;
    const Point4 start = ship.getPosition();
    const ObjectSlot ahead =
        galaxy->getObjectByLine(&ship, start, start + ship.getOrientation() * reach);
    return asShip(ahead) && (*ahead)->getId() != own_target;
}

void PlainPilot::steer(const Point4& place, const Vector4& drift) {
    const Vector4 way(ship.getPosition(), place);
    const Vector4 ahead = ship.getOrientation(), up = ship.getUp(), right = ahead ^ up;
    const float distance = std::max(way.getLength(), 1.0F), level = way * right;
    const float yaw = degrees(std::atan2(level, way * ahead));
    const float pitch = degrees(std::atan2(way * up, std::hypot(way * ahead, level)));
    const auto rate = [&](float angle, const Vector4& across) {
        const float following = degrees(drift * across / distance) / degrees_per_rate;
        const auto wanted = static_cast<int>(std::lround(angle * rate_per_degree + following));
        return std::clamp(wanted, -fastest_rate, fastest_rate);
    };
    const int heading = rate(yaw, right), nose_down = -rate(pitch, up);
    if (std::abs(heading - heading_rate) >= std::abs(nose_down - pitch_rate))
        turn(heading_rate, heading, SDLK_a, SDLK_d);
    else
        turn(pitch_rate, nose_down, SDLK_s, SDLK_w);
}

void PlainPilot::turn(int& rate, int wanted, SDLKey less, SDLKey more) {
    if (left_hand > 0 || rate == wanted) return;
    press(rate < wanted ? more : less);
    rate += rate < wanted ? 1 : -1;
    left_hand = left_hand_time;
}

void PlainPilot::setThrottle(int percent) {
    const int throttle = ship.getControl()->getThrottle();
    if (right_hand > 0 || throttle == percent) return;
    press(throttle < percent ? SDLK_UP : SDLK_DOWN);
    right_hand = right_hand_time;
}

void PlainPilot::shoot(const Starship& other, float off_course) {
    const float distance = getDistance(other.getPosition());
    const float width = degrees(std::atan2(other.getSize(), distance));
    const bool charged = ship.getReactor()->getBatCharge() > spare_charge;
    const bool torpedo_ahead = next_torpedo > torpedo_time - torpedo_flight_time;
    if (right_hand > 0 || torpedo_ahead || !charged || distance > laser_distance) return;
    if (off_course > width + aiming_slack || isBlocked(other.getId())) return;
    press(SDLK_RETURN);
    right_hand = right_hand_time;
}

/// Locks a target first, and looks what one torpedo does before the next.
void PlainPilot::launch(const Starship& other) {
    const TorpedoLauncher* tubes = ship.getTorpedoLauncher();
    const float distance = getDistance(other.getPosition());
    const float width = degrees(std::atan2(other.getSize(), distance));
    if (!tubes || tubes->getLoad() <= 0 || right_hand > 0 || distance > lock_distance) return;

    const ObjectSlot selected = ship.getSelectedObject();
    const bool locked = selected && *selected == &other;
    if (!locked) {
        if (getOffCourse(other.getPosition()) > width) return;
        press(SDLK_SPACE);
        right_hand = right_hand_time;
        return;
    }
    const auto charge = static_cast<float>(tubes->getPower());
    const bool in_range = distance > nearest_torpedo && distance < farthest_torpedo;
    const bool ahead = getOffCourse(other.getPosition()) < width + locking_slack;
    if (next_torpedo > 0 || !in_range || !ahead || ship.getReactor()->getBatCharge() < charge)
        return;
    press(SDLK_BACKSPACE);
    right_hand = right_hand_time;
    next_torpedo = torpedo_time;
}

void PlainPilot::press(SDLKey key) const {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    ship.getControl()->handleEvents(event);
}

Vector4 PlainPilot::getDrift(const Starship& other) const {
    return other.getHeading() * other.getVelocity() - ship.getHeading() * ship.getVelocity();
}

/// How fast the way to another ship gets shorter, in world units per second.
float PlainPilot::getClosingSpeed(const Starship& other) const {
    return -(Vector4(ship.getPosition(), other.getPosition()).normalize() * getDrift(other));
}

float PlainPilot::getDistance(const Point4& place) const {
    return Vector4(ship.getPosition(), place).getLength();
}

float PlainPilot::getOffCourse(const Point4& place) const {
    const Vector4 way(ship.getPosition(), place);
    const float length = way.getLength();
    if (length == 0) return 0;
    return degrees(std::acos(std::clamp(way * ship.getOrientation() / length, -1.0F, 1.0F)));
}
