#pragma once

#include "3d/point.h"
#include "3d/vector.h"
#include "game/object_slot.h"

#include <SDL.h>

#include <set>

class _GameObject;
class Galaxy;
class Starship;

/// A plain player at the keyboard: turns to the nearest enemy that is a danger, or else to what the
/// story asks for, and shoots at it, with torpedoes when there is a lock. It presses the keys of
/// the game, no faster than two hands do, and knows no more than the instruments show.
class PlainPilot {
public:
    explicit PlainPilot(Starship& ship) : ship(ship) {}
    virtual ~PlainPilot() = default;

    Starship& getShip() const { return ship; }
    /// Takes up the flight in a galaxy, against the ships of those ids. The ship goes on turning as
    /// it did.
    void enter(const Galaxy& g, const std::set<int>& hostile);

    /// Presses what is due in the next `time_diff` milliseconds.
    void fly(int time_diff);
    /// The same, straight to a place at full speed, whatever the story asks for.
    void flyTo(const Point4& place, int time_diff);

protected:
    /// Presses and releases a key.
    virtual void press(SDLKey key) const;

private:
    /// The ids of what would bring the story nearest to its end.
    struct Goals {
        std::set<int> ships, planets;
    };
    Goals findGoals() const;
    /// The nearest of those objects that are still there.
    ObjectSlot findNearest(const std::set<int>& ids) const;
    void chooseTarget();

    void attack(const Starship& target);
    void evade(const _GameObject& other);
    /// Lets so many milliseconds pass for both hands.
    void rest(int time_diff);
    void land(const Point4& place);
    /// The ship with which this one is about to collide, an empty slot if there is none.
    ObjectSlot findCollision() const;
    /// Whether another ship is in the line of fire.
    bool isBlocked(int own_target) const;
    /// Turns towards a place; `drift` is how fast it moves by.
    void steer(const Point4& place, const Vector4& drift = Vector4());
    void setThrottle(int percent);
    void shoot(const Starship& target, float off_course);
    void launch(const Starship& target);

    void turn(int& rate, int wanted, SDLKey less, SDLKey more);
    /// How another ship moves as seen from this one, in world units per second.
    Vector4 getDrift(const Starship& other) const;
    float getClosingSpeed(const Starship& other) const;
    float getDistance(const Point4& place) const;
    /// How many degrees off the ship's nose a place is.
    float getOffCourse(const Point4& place) const;

    Starship& ship;
    const Galaxy* galaxy = nullptr;
    std::set<int> enemies;
    ObjectSlot target;
    ObjectSlot obstacle;                   ///< what is evaded, while that lasts
    int heading_rate = 0, pitch_rate = 0;  ///< as the keys have set them
    bool breaking_off = false;             ///< too near: on the way to a new approach

    // Milliseconds until the next key, torpedo and choice of a target.
    int left_hand = 0, right_hand = 0, next_torpedo = 0, next_choice = 0, evasion = 0;
};
