#include "game/tactical_module.h"

#include "game/ai_control.h"
#include "game/chance.h"
#include "game/radar.h"
#include "game/starship.h"
#include "game/torpedo_launcher.h"
#include "main/log_factory.h"

#include <SDL.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

// How a chase feels for obstacles, by the target's size.
constexpr float chase_ray_factor = 0.01f;
constexpr float chase_ray_offset = 1.1f;
constexpr float chase_threshold = 30;

// The bands around a target: how far beyond its size each of them reaches, in world units.
constexpr float flee_band = 20;
constexpr float brake_band = 40;
constexpr float stop_band = 60;
constexpr float fire_band = 250;
constexpr float approach_band = 500;
constexpr float attack_band = 300;

constexpr double brake_rate = 0.7;           // of the wished speed is left after a second
constexpr double fire_speed = 2;             // times the target's speed, where the band ends
constexpr double rest = 0.01;                // of the top speed: less does not open the throttle
constexpr double resumption = 0.1;           // of the top speed: a resumed chase wants no less
constexpr double fastest_wish = 1e6;         // a wish that grows frame by frame stays a number
constexpr float lead_per_distance = 0.001f;  // how far to aim ahead of a target of speed 1

constexpr float nearest_lock = 280;
constexpr float no_lock = -1;
constexpr double lock_chance = 0.2;
constexpr double attack_chance = 0.5;
constexpr int shortest_pause = 150;  // milliseconds between two decisions to attack
constexpr double pause_spread = 300;

}  // namespace

TacticalModule::TacticalModule(const XMLElement&, AIControl* a)
    : ship(a->getParentShip()),
      aic(a),
      max_lock_distance(no_lock),
      min_lock_distance(nearest_lock) {
    srand(SDL_GetTicks());
}

void TacticalModule::activate(const ObjectSlot& s) {
    const Starship* enemy = AIControl::findShip(s);
    if (!enemy) {
        logLine(std::cerr, "ERROR (GAME): ", "TacticalModule::activate: null pointer");
        return;
    }
    target = s;
    time_to_next_attack = 0;
    const TorpedoLauncher* launcher = ship->getTorpedoLauncher();
    max_lock_distance = launcher ? static_cast<float>(launcher->getRange()) : no_lock;
    min_lock_distance = nearest_lock;

    const float size = enemy->getSize();
    aic->ray_length_factor = size * chase_ray_factor;
    aic->ray_length_offset = size * chase_ray_offset;
    aic->tmp_point_threshold = chase_threshold;
    logLine(std::cout, "!! GAME(5): ", "Attacking ", enemy->getName());
}

void TacticalModule::update(int time_diff) {
    Starship* enemy = AIControl::findShip(target);
    const Radar* radar = ship->getRadar();
    if (!enemy || !radar) throw AI_STATE_IDLE;

    const float dist = Vector4(ship->getPosition(), enemy->getPosition()).getLength();
    if (!(dist <= static_cast<float>(radar->getRange()))) throw AI_STATE_IDLE;

    const double speed = chooseSpeed(*enemy, dist, time_diff);
    aic->nav_speed = static_cast<float>(std::clamp(speed, 0.0, fastest_wish));
    aic->nav_point = choosePoint(*enemy, dist);
    tryToLock(*enemy, dist);
    tryToAttack(*enemy, dist, time_diff);
}

double TacticalModule::chooseSpeed(const Starship& enemy, float dist, int time_diff) const {
    const float size = enemy.getSize();
    if (dist <= size + flee_band) return aic->getTopSpeed();
    if (dist <= size + brake_band) return aic->nav_speed * (time_diff * brake_rate / 1000);
    if (dist < size + stop_band) return 0;
    if (dist <= size + fire_band) {
        const double way_out = (dist - (size + stop_band)) / (fire_band - stop_band);
        return fire_speed * enemy.getVelocity() * way_out;
    }
    if (dist <= size + approach_band) return matchSpeed(enemy, dist, time_diff);
    return aic->getTopSpeed();
}

/// Changes the speed so that the ship arrives with that of its target.
double TacticalModule::matchSpeed(const Starship& enemy, float dist, int time_diff) const {
    const double v_max = aic->getTopSpeed();
    const double target_speed = enemy.getVelocity();
    if (aic->nav_speed < rest * v_max || aic->nav_speed == 0)
        return std::max(target_speed, resumption * v_max);

    const double speed_diff = ship->getVelocity() - target_speed;
    const double time_to_target = dist / aic->nav_speed;
    return aic->nav_speed - time_diff * speed_diff / (1000 * time_to_target);
}

Point4 TacticalModule::choosePoint(const Starship& enemy, float dist) const {
    const Point4 s_pos = ship->getPosition();
    Point4 target_position = enemy.getPosition();
    const Vector4 target_heading = enemy.getHeading();
    const float target_speed = enemy.getVelocity();
    const float size = enemy.getSize();

    if (dist <= size + flee_band) return s_pos - Vector4(s_pos, target_position);
    const bool behind_it = dist <= size + brake_band || !(dist <= size + approach_band);
    if (behind_it) return target_position - target_heading * (size / 2);
    if (target_speed == 0) return target_position;
    return target_position + target_heading * (size + lead_per_distance * target_speed * dist);
}

void TacticalModule::tryToLock(Starship& enemy, float dist) {
    if (dist < min_lock_distance || dist > max_lock_distance) return;
    const ObjectSlot selected = ship->getSelectedObject();
    if (selected && *selected) return;
    if (comesTrue(lock_chance)) aic->lockTarget(&enemy);
}

void TacticalModule::tryToAttack(Starship& enemy, float dist, int time_diff) {
    if (dist > enemy.getSize() + attack_band) return;
    if (time_to_next_attack > 0) {
        time_to_next_attack -= time_diff;
        return;
    }
    if (comesTrue(attack_chance)) aic->doAttack(&enemy);
    time_to_next_attack = shortest_pause + static_cast<int>(randomFraction() * pause_spread);
}
