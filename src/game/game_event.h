#pragma once

#include "main/event.h"

#include <list>
#include <string>
#include <utility>

class _Damageable;
class Laser;
class Starship;
class Torpedo;

/// The base of the signals by which objects ask something of the world. An object throws one out of
/// its update; the loop that called the update acts on it.
class GameEvent : public Event {
public:
    explicit GameEvent(const std::string& msg = "GameEvent: no description available")
        : Event(msg) {}
};

/// A ship has fired. The lasers belong to whoever catches the event.
class LaserFiredEvent : public GameEvent {
public:
    explicit LaserFiredEvent(std::list<Laser*> l) : lasers(std::move(l)) {}

    std::list<Laser*> getLasers() const { return lasers; }

private:
    std::list<Laser*> lasers;
};

/// A ship has launched a torpedo, which belongs to whoever catches the event.
class TorpedoFiredEvent : public GameEvent {
public:
    explicit TorpedoFiredEvent(Torpedo* t) : torpedo(t) {}

    Torpedo* getTorpedo() const { return torpedo; }

private:
    Torpedo* torpedo;
};

/// A laser has used up its energy.
class LaserFadedEvent : public GameEvent {
public:
    LaserFadedEvent() = default;
};

/// A torpedo's explosion is over.
class TorpedoFadedEvent : public GameEvent {
public:
    TorpedoFadedEvent() = default;
};

/// A ship's explosion is over.
class StarshipFadedEvent : public GameEvent {
public:
    StarshipFadedEvent() = default;
};

/// The player has lost the ship. Ends the flight.
class GameOverEvent : public GameEvent {
public:
    explicit GameOverEvent(const std::string& msg) : GameEvent(msg) {}
};

/// Something has lost the last of its integrity.
class DestroyEvent : public GameEvent {
public:
    explicit DestroyEvent(_Damageable* t) : target(t) {}

    _Damageable* getTarget() const { return target; }

private:
    _Damageable* target;
};

/// Fuel was asked of an empty tank.
class TankEmptyEvent : public GameEvent {
public:
    explicit TankEmptyEvent(Starship* s);

    Starship* getShip() const { return ship; }

private:
    Starship* ship;
};

/// How a level ends.
enum LEenum {
    LE_GAME_QUIT = 0,
    LE_FINISHED = 1,
    LE_GAME_OVER = 2,
};

/// The story has come to an end of the level.
class LevelEndEvent : public GameEvent {
public:
    explicit LevelEndEvent(LEenum t,
                           const std::string& msg = "LevelEndEvent: no description available")
        : GameEvent(msg), type(t) {}

    LEenum getType() const { return type; }

private:
    LEenum type;
};
