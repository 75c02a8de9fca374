#pragma once

#include "game/level.h"

#include <list>
#include <memory>
#include <string>

class Starship;
class XMLElement;
class XMLParser;

/// The top of the program: reads the game file, owns the player's ship and runs level after level.
/// Built once, by the entry point, after the window.
class Game {
public:
    /// Reads the game file and builds the catalogues and the player's ship.
    /// Throws Exception, or a child of it, on any fault of the file or of what it names.
    explicit Game(const std::string& filename);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    /// Runs until the player quits. A lost ship starts again at the first level with a new one.
    /// Throws Exception if the game file holds no level or a level fails to load.
    void start();

private:
    using LevelNodes = std::list<std::unique_ptr<XMLElement>>;
    using level_node_t = LevelNodes::iterator;

    class LoadedLevel;
    class LoadedWorld;

    void loadLevelNodes(const XMLElement& level_section);
    /// Ends the level in play, if any, and loads that of `current_level`.
    void changeLevel(LoadedLevel& level, LVLenum reason = LEVEL_END);
    void restart(LoadedLevel& level, LVLenum reason);

    std::unique_ptr<XMLParser> parser;  // keeps the document alive, so it goes last
    std::unique_ptr<XMLElement> game_node;
    std::unique_ptr<XMLElement> user_ship_node;
    LevelNodes level_nodes;  // one per level, in play order
    level_node_t current_level;
    std::unique_ptr<LoadedWorld> world;
    std::unique_ptr<Starship> player;
};
