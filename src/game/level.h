#pragma once

#include "3d/point.h"
#include "game/facing.h"

#include <map>
#include <memory>

class Galaxy;
class Starship;
class XMLElement;

/// What came of running a level.
enum LVLenum {
    LEVEL_END = 0,
    PLAYER_KILLED = 1,
    MENU_ACTIVATION = 10,
    SYSTEM_EXIT = 20,
};

/// One playable level: the galaxies of its universe, one of which is flown in, the place where the
/// player's ship starts, and the story. One level exists at a time.
class Level {
public:
    /// Loads all galaxies of the level's universe and puts the player's ship, which is not owned,
    /// at its start. Throws Exception, or a child of it, on any fault of the game file.
    Level(const XMLElement& root_node, Starship* s);
    /// Ends everything that lives in the level, and its story. Throws Exception when the level was
    /// given no story, so no smart pointer may own a level; silent while another failure is on its
    /// way.
    ~Level() noexcept(false);
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    /// Flies until the player leaves the galaxy or the level is decided; can be entered again, and
    /// then goes on where it was left. Throws GameOverEvent when the player's ship is lost.
    LVLenum run();

private:
    void readGalaxies(const XMLElement& root_node);
    static void readChildren(const XMLElement& root_node);
    void placeShip();

    std::map<int, std::unique_ptr<Galaxy>> galaxies;
    int current_galaxy;
    Point4 start_position;
    facing_t start_facing;
    Starship* star_ship;
};
