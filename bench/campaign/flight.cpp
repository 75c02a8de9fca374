#include "bench/campaign/flight.h"

#include "bench/campaign/game_elements.h"
#include "bench/campaign/plain_pilot.h"
#include "game/facing.h"
#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "game/tank.h"
#include "game/torpedo_launcher.h"

#include <algorithm>
#include <string>

namespace {

constexpr int frame_time = 20;              // milliseconds
constexpr int time_limit = 15 * 60 * 1000;  // milliseconds
constexpr int inspection_time = 1000;       // milliseconds
constexpr int doom_time = 4500;             // milliseconds that a ship takes to burst

/// The lowest integrity in a tree of parts.
float findWeakest(const _3D_Rep& part) {
    float weakest = part.getIntegrity();
    for (unsigned int i = 0; i < part.getNumSlots(); ++i)
        if (const _3D_Rep* item = part.getSlot(static_cast<int>(i)).item)
            weakest = std::min(weakest, findWeakest(*item));
    return weakest;
}

/// Who collides bursts at once, with what parts he had.
Outcome findLoss(const Starship& ship) {
    return findWeakest(*ship.getHull()) > 0 ? COLLIDED : SHOT_DOWN;
}

/// The landing screen waits for a key: there is always one for it.
void offerKey() {
    SDL_Event waiting;
    if (SDL_PeepEvents(&waiting, 1, SDL_PEEKEVENT, SDL_KEYDOWNMASK) > 0) return;
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    SDL_PushEvent(&event);
}

}  // namespace

class Flight::Arena : public Galaxy {
public:
    using Galaxy::Galaxy, Galaxy::receive;

    void pass() {
        update(frame_time);
        detectCollisions();
    }
};

Flight::Flight(const XMLElement& world, const XMLElement& level)
    : level(level),
      arena(std::make_unique<Arena>(elements::findGalaxy(world, level), nullptr)),
      enemies(elements::findEnemies(elements::findGalaxy(world, level))) {}

Flight::~Flight() = default;

Result Flight::fly(PlainPilot& pilot) {
    Starship& ship = pilot.getShip();
    const facing_t facing = readFacing(level, "user_starship_orientation", "user_starship_up");
    ship.setPosition(level.getAttributeAsPoint("user_starship_position"));
    ship.setOrientation(facing.orientation);
    ship.setHeading(facing.orientation);
    ship.setUp(facing.up);
    arena->receive(&ship);
    elements::forEachChild(level, "StoryTeller", StoryTeller::createInstance);

    int time = 0;
    const Outcome outcome = flyToTheEnd(pilot, time);
    const Tank& tank = *ship.getTank();
    const TorpedoLauncher* tubes = ship.getTorpedoLauncher();
    const Result result = {outcome,
                           static_cast<float>(time) / 1000,
                           ship.getHull()->getIntegrity(),
                           findWeakest(*ship.getHull()),
                           100 * tank.getFuel() / tank.getCapacity(),
                           static_cast<float>(tubes ? tubes->getLoad() : 0),
                           static_cast<float>(StoryTeller::getInstance()->getPoints()),
                           static_cast<float>(countCrashed())};
    StoryTeller::destroyInstance();
    return result;
}

Outcome Flight::flyToTheEnd(PlainPilot& pilot, int& time) {
    pilot.enter(*arena, enemies);
    try {
        for (; time < time_limit; time += frame_time) {
            offerKey();
            pilot.fly(frame_time);
            arena->pass();
            if (time % inspection_time == 0) inspect(pilot.getShip());
        }
    } catch (const GameOverEvent&) {
        return findLoss(pilot.getShip());
    } catch (const LevelEndEvent& end) {
        return end.getType() == LE_FINISHED && outlives(pilot.getShip())
                   ? WON
                   : findLoss(pilot.getShip());
    }
    return ENDLESS;
}

/// A ship that goes down with its last enemy has won nothing: it would be lost in the next level.
bool Flight::outlives(const Starship& ship) {
    if (findWeakest(*ship.getHull()) <= 0) return false;
    try {
        for (int time = 0; time < doom_time; time += frame_time) arena->pass();
    } catch (const GameOverEvent&) {
        return false;
    }
    return true;
}

void Flight::inspect(const Starship& player) {
    for (const auto& [id, slot] : arena->getObjects())
        if (const auto* ship = dynamic_cast<const Starship*>(*slot); ship && ship != &player)
            condition[id] = findWeakest(*ship->getHull());
}

int Flight::countCrashed() const {
    return static_cast<int>(std::ranges::count_if(condition, [this](const auto& ship) {
        return !*arena->getObjectById(ship.first) && ship.second > 0;
    }));
}
