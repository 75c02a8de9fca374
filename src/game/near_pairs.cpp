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

/// A number that is the higher the higher the id is, also for ids below 0.
std::uint64_t rank(int id) {
    return static_cast<std::uint32_t>(id) ^ 0x80000000U;
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
    return sphere ? std::max(reach, sphere->getRadius()) : unknown;
}

void NearPairs::start(const std::map<int, ObjectSlot>& objects) {
    collect(objects);
    position = 0;
}

void NearPairs::restart(const std::map<int, ObjectSlot>& objects) {
    const std::uint64_t present = pairs[position - 1].order;
    collect(objects);
    const auto next = std::ranges::upper_bound(pairs, present, {}, &Pair::order);
    position = static_cast<std::size_t>(next - pairs.begin());
}

const NearPairs::Pair* NearPairs::next() {
    while (position < pairs.size()) {
        const Pair& pair = pairs[position++];
        if (**pair.first && **pair.second) return &pair;
    }
    return nullptr;
}

void NearPairs::collect(const std::map<int, ObjectSlot>& objects) {
    pairs.clear();
    for (const auto& [id, slot] : objects)
        if (*slot) grid.setReach(**slot, findReach(**slot));

    for (const auto& [id, slot] : objects)
        if (*slot && (*slot)->getType() != GO_LASER) collectAround(id, slot);
    std::ranges::sort(pairs, {}, &Pair::order);
}

// A laser is found by the others; two others find each other, and the lower id takes the pair.
void NearPairs::collectAround(int id, const ObjectSlot& slot) {
    grid.findNear(**slot, findReach(**slot), found);
    for (const ObjectGrid::Entry* other : found) {
        if (id < other->id)
            add(id, &slot, other->id, other->slot);
        else if (other->object->getType() == GO_LASER)
            add(other->id, other->slot, id, &slot);
    }
}

void NearPairs::add(int first_id, const ObjectSlot* first, int second_id,
                    const ObjectSlot* second) {
    pairs.push_back({rank(first_id) << 32 | rank(second_id), first, second});
}
