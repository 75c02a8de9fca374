#include "game/attack_module.h"

#include "game/ai_control.h"
#include "game/chance.h"
#include "game/starship.h"

namespace {

constexpr double laser_chance = 0.3;
constexpr double torpedo_chance = 0.01;
constexpr float least_torpedo_distance = 300;

}  // namespace

AttackModule::AttackModule(const XMLElement&, AIControl* a) : aic(a), ship(a->getParentShip()) {}

void AttackModule::attack(Starship* t) {
    if (comesTrue(laser_chance)) {
        aic->fireWeapon(WP_LASER);
        return;
    }
    const ObjectSlot selected = ship->getSelectedObject();
    if (!selected || !*selected) return;
    const float target_dist = Vector4(ship->getPosition(), t->getPosition()).getLength();
    if (target_dist < least_torpedo_distance) return;
    if (comesTrue(torpedo_chance)) aic->fireWeapon(WP_TORPEDO);
}
