#include "game/idle_module.h"

#include "game/ai_control.h"
#include "game/galaxy.h"
#include "game/radar.h"
#include "game/starship.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <iostream>
#include <utility>

namespace {

constexpr float patrol_ray_factor = 3;
constexpr float patrol_ray_offset = 50;
constexpr float patrol_threshold = 20;

}  // namespace

IdleModule::IdleModule(const XMLElement& node, AIControl* a) : aic(a) {
    if (node.getName() != "IdleModule") {
        throw Exception("IdleModule::IdleModule: wrong XML node type (" + node.getName() + ")");
    }
    tol = node.getAttributeAsFloat("tolerance");
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const float speed = child.getAttributeAsFloat("speed");
        nav_entry_list.push_back({child.getAttributeAsPoint("point"), speed});
    }
    if (nav_entry_list.empty()) throw Exception("IdleModule::IdleModule: no NavEntries found");
    current_nav_entry = nav_entry_list.begin();
}

void IdleModule::activate() {
    current_nav_entry = nav_entry_list.begin();
    flyToCurrentEntry();
    aic->ray_length_factor = patrol_ray_factor;
    aic->ray_length_offset = patrol_ray_offset;
    aic->tmp_point_threshold = patrol_threshold;
}

void IdleModule::flyToCurrentEntry() {
    aic->nav_point = current_nav_entry->point;
    aic->nav_speed = current_nav_entry->speed;
}

void IdleModule::update(int) {
    if (tol > aic->distance) {
        if (++current_nav_entry == nav_entry_list.end()) current_nav_entry = nav_entry_list.begin();
        flyToCurrentEntry();
        logLine(std::cout,
                "!! GAME(5): ", "IdleModule::update: next NavEntry: speed: ", aic->nav_speed,
                "\t destination: ", aic->nav_point);
    }
    lookForTarget();
}

void IdleModule::lookForTarget() {
    const Starship& ship = *aic->getParentShip();
    if (!ship.getRadar() || !ship.getGalaxy()) return;

    auto min_dist = static_cast<float>(ship.getRadar()->getRange());
    ObjectSlot candidate;
    for (auto id = aic->targets.begin(); id != aic->targets.end();) {
        ObjectSlot slot = ship.getGalaxy()->getObjectById(*id);
        const Starship* other = AIControl::findShip(slot);
        // What has gone will not come back, and a pilot that names itself has no enemy in itself.
        if (!other || other == &ship) {
            id = aic->targets.erase(id);
            continue;
        }
        ++id;
        const float dist = Vector4(ship.getPosition(), other->getPosition()).getLength();
        if (!(dist < min_dist)) continue;
        min_dist = dist;
        candidate = std::move(slot);
    }
    if (candidate) throw candidate;
}
