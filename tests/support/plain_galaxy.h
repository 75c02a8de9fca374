#pragma once

#include "3d/bounding_sphere.h"
#include "game/galaxy.h"
#include "game/game_object.h"

/// A galaxy without a broad phase: goes through all pairs and asks all objects. What a galaxy does
/// is measured by it, the outcome and the time.
class PlainGalaxy : public Galaxy {
public:
    using Galaxy::Galaxy;

    ObjectSlot getObjectByLine(const _GameObject* ego, const Point4& start,
                               const Point4& end) const override {
        ObjectSlot nearest;
        float nearest_distance = 0;
        for (const auto& [id, slot] : getObjects()) {
            const _GameObject* object = *slot;
            if (!object || object == ego) continue;
            const float distance = Vector4(start, object->getPosition()).getLength();
            if ((!nearest || distance < nearest_distance) &&
                object->getBoundingSphere().isIntersected(start, end)) {
                nearest = slot;
                nearest_distance = distance;
            }
        }
        return nearest;
    }

protected:
    bool detectCollisions() override {
        bool stop_time = false;
        for (auto first = getObjects().begin(); first != getObjects().end(); ++first)
            for (auto second = std::next(first); *first->second && second != getObjects().end();
                 ++second)
                if (*second->second && collide(first->second, second->second)) stop_time = true;
        return stop_time;
    }
};
