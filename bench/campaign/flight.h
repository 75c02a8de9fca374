#pragma once

#include "xml/xml_element.h"

#include <map>
#include <memory>
#include <set>

class PlainPilot;
class Starship;

enum Outcome {
    WON = 0,
    SHOT_DOWN = 1,
    COLLIDED = 2,
    ENDLESS = 3,  ///< neither within the time limit: a wreck adrift, or a goal out of reach
};

/// What came of one flight through a level.
struct Result {
    Outcome outcome;
    float seconds;
    float hull, weakest_part, fuel;  ///< percent
    float torpedoes, points;
    float crashed;  ///< other ships that ran into something, and were not shot down
};

/// One level of the game, loaded and ready. A flight uses it up, so that each takes place in a
/// process of its own.
class Flight {
public:
    /// Loads the galaxy in which a "Level" element is flown, out of the "WorldSection".
    Flight(const XMLElement& world, const XMLElement& level);
    ~Flight();
    Flight(const Flight&) = delete;
    Flight& operator=(const Flight&) = delete;

    /// Lets the pilot fly from the start of the level to its end.
    Result fly(PlainPilot& pilot);

private:
    class Arena;

    Outcome flyToTheEnd(PlainPilot& pilot, int& time);
    bool outlives(const Starship& ship);
    /// Notes how well the ships of the galaxy are.
    void inspect(const Starship& player);
    /// How many have gone with all their parts whole.
    int countCrashed() const;

    XMLElement level;
    std::unique_ptr<Arena> arena;
    std::set<int> enemies;           ///< ids of the ships that attack the player's
    std::map<int, float> condition;  ///< of each ship when last seen: its weakest part
};
