#include "game/damageable.h"

#include "game/game_event.h"

#include <algorithm>

float _Damageable::damage(float i) {
    integrity = integrity - (1 - resistance * integrity / 10000) * i;
    if (!destroyed && integrity <= 0) {
        destroyed = true;
        throw DestroyEvent(this);
    }
    return integrity;
}

void _Damageable::repair(float i) {
    integrity = std::min(integrity + i, 100.0f);
}
