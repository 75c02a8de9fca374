#pragma once

#include "3d/vector.h"
#include "game/object_slot.h"

#include <SDL.h>

class Starship;

/// The kinds of pilot.
enum CTRLenum {
    CTRL_PLAYER = 0,
    CTRL_AI_STATIC = 1,
    CTRL_AI_CIRCLE = 2,
    CTRL_AI_PATH = 3,
    CTRL_AI = 4,
};

/// What a pending shot uses. The values are each other's negatives: a switch of weapon is a change
/// of sign.
enum WPenum {
    WP_LASER = -1,
    WP_TORPEDO = 1,
};

/// A ship's pilot, the only thing that steers it. The pilot states wishes for the frame in
/// `updateAI`: attitude, throttle, a shot, a target. `update` carries them out. Owned by its ship.
class _Control {
public:
    _Control(Starship* s, CTRLenum t) : type(t), ship(s) {}
    virtual ~_Control() = default;
    _Control(const _Control&) = delete;
    _Control& operator=(const _Control&) = delete;

    /// Takes an input event that nobody else used; only the player's control listens.
    virtual void handleEvents(const SDL_Event& /*event*/) {}

    CTRLenum getType() const { return type; }
    Starship* getParentShip() const { return ship; }
    /// Percent of the top speed, 0 to 100.
    int getThrottle() const { return throttle; }

    /// Closes the throttle and drops a pending shot.
    void reset();
    void lock() { locked = true; }
    void unlock() { locked = false; }

    /// Flies the ship for one frame of `time_diff` milliseconds; a locked control does nothing, and
    /// an empty tank locks it. A shot leaves as a thrown LaserFiredEvent or TorpedoFiredEvent.
    void update(int time_diff);

protected:
    /// The pilot's part of the frame: changes the wishes below.
    virtual void updateAI(int time_diff) = 0;

    /// Whether a vector leads anywhere: it has a length, and one that can be told.
    static bool isDirection(const Vector4& v);

    /// The slot of the nearest object within `range` world units straight ahead, empty without one.
    ObjectSlot findAhead(float range) const;
    /// Makes an object the ship's target.
    void select(const ObjectSlot& object);
    /// Makes the nearest object ahead the ship's target; keeps the old one when there is none.
    void selectObject();

    CTRLenum type;
    int throttle = 0;
    Vector4 new_orientation;
    Vector4 new_up;
    bool fired = false;
    bool locked = false;
    bool select_new_object = false;
    Starship* ship;
    WPenum weapon_mode = WP_LASER;

private:
    void steer();
    void thrust(int time_diff);
    void shoot();
    void fireLasers();
    void fireTorpedo();
};
