#pragma once

#include "game/object_slot.h"

class AIControl;
class Point4;
class Starship;
class XMLElement;

/// How a pilot goes after a target: it closes in, holds a firing distance behind it, and decides
/// when to lock on and when to attack.
class TacticalModule {
public:
    /// Nothing of the element is read. Seeds the random numbers anew.
    TacticalModule(const XMLElement& node, AIControl* a);

    /// Goes after the ship in the slot `s`.
    void activate(const ObjectSlot& s);
    /// Sets point and speed for the chase and attacks when it is time to. Throws AI_STATE_IDLE when
    /// the target has gone or has left the radar's range.
    void update(int time_diff);

private:
    /// The speed that the distance asks for, in world units per second, and the point to go to.
    double chooseSpeed(const Starship& enemy, float dist, int time_diff) const;
    double matchSpeed(const Starship& enemy, float dist, int time_diff) const;
    Point4 choosePoint(const Starship& enemy, float dist) const;
    void tryToLock(Starship& enemy, float dist);
    void tryToAttack(Starship& enemy, float dist, int time_diff);

    ObjectSlot target;
    Starship* ship;
    AIControl* aic;
    int time_to_next_attack = 0;  ///< milliseconds
    float max_lock_distance;      ///< no lock beyond it, none at all below 0
    float min_lock_distance;      ///< no lock nearer than this
};
