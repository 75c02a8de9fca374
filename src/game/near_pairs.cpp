#include "game/near_pairs.h"

#include "3d/bounding_sphere.h"
#include "game/game_object.h"
#include "game/shield.h"
#include "game/starship.h"

#include <algorithm>
#include <limits>

namespace {

constexpr GAMEOBJenum known_types[] = {GO_LASER,    GO_TORPEDO,  GO_STARSHIP, GO_PLANET,
                                       GO_ASTEROID, GO_WORMHOLE, GO_SUN};

bool isLaser(const _GameObject& object) {
    return object.getType() == GO_LASER;
}

}  // namespace

// A shield is met before its ship is, and stands around the ship's position, wherever its bounds
// are. Of an object of no known kind all pairs are visited, so that it is noticed.
float NearPairs::findReach(const _GameObject& object) {
    constexpr float unknown = std::numeric_limits<float>::infinity();
    if (!std::ranges::count(known_types, object.getType())) return unknown;

    const _BoundingObject& bounds = object.getBoundingObject();
    const float reach = bounds.getDistance(object.getPosition()) + bounds.getRadius();
    if (object.getType() != GO_STARSHIP) return reach;

    const Shield* shield = static_cast<const Starship&>(object).getShield();
    if (!shield) return reach;
    const _BoundingObject* sphere = shield->getBoundingObject();
    if (!sphere) return unknown;
    return std::max(reach, sphere->getRadius());
}

void NearPairs::start(const Objects& all) {
    objects = &all;
    first = all.end();
    seconds.clear();
    position = 0;
    measure();
    if (!all.empty()) approach(all.begin());
}

void NearPairs::restart() {
    const int present = seconds[position - 1]->id;
    measure();
    approach(first);
    const auto next = std::ranges::upper_bound(seconds, present, {}, &ObjectGrid::Entry::id);
    position = static_cast<std::size_t>(next - seconds.begin());
}

const NearPairs::Pair* NearPairs::next() {
    while (first != objects->end()) {
        while (*first->second && position < seconds.size()) {
            pair = {&first->second, seconds[position++]->slot};
            if (**pair.second) return &pair;
        }
        if (++first != objects->end()) approach(first);
    }
    return nullptr;
}

void NearPairs::measure() {
    last_body = std::numeric_limits<int>::min();
    for (const auto& [id, slot] : *objects) {
        if (!*slot) continue;
        grid.setReach(**slot, findReach(**slot));
        if (!isLaser(**slot)) last_body = id;
    }
}

// Lasers come last, as a rule, and have nobody to meet behind them.
void NearPairs::approach(Objects::const_iterator entry) {
    first = entry;
    seconds.clear();
    position = 0;
    const auto& [id, slot] = *entry;
    if (!*slot || (isLaser(**slot) && id > last_body)) return;

    grid.findNear(**slot, findReach(**slot), seconds);
    const bool laser = isLaser(**slot);
    std::erase_if(seconds, [id = id, laser](const ObjectGrid::Entry* other) {
        return other->id <= id || (laser && isLaser(*other->object));
    });
    std::ranges::sort(seconds, {}, &ObjectGrid::Entry::id);
}
