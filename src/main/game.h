#pragma once

#include "game/level.h"
#include "main/game_callbacks.h"

#include <list>
#include <memory>
#include <string>

class BackgroundModel;
class Button;
class MenuFrame;
class Starship;
class XMLElement;
class XMLParser;

/// The top of the program: reads the game file, owns the player's ship and the main menu, and goes
/// back and forth between the menu and the levels. Built once, by the entry point, after the
/// window.
class Game {
public:
    /// Reads the game file and builds the catalogues, the player's ship and the main menu.
    /// Throws Exception, or a child of it, on any fault of the file or of what it names.
    explicit Game(const std::string& filename);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    /// Runs until the player quits, from the menu on. Who has lost the ship, or finished the last
    /// level, starts again at the first level with a new ship, after the menu.
    /// Throws Exception if the game file holds no level or a level fails to load.
    void start();

private:
    using LevelNodes = std::list<std::unique_ptr<XMLElement>>;
    using level_node_t = LevelNodes::iterator;

    class LoadedLevel;
    class LoadedWorld;

    void loadLevelNodes(const XMLElement& level_section);
    void buildMenu();

    /// Do what the end of a flight asks for; all return false when the player quits the program.
    bool act(LVLenum res, LoadedLevel& level);
    bool pause();
    bool goToNextLevel(LoadedLevel& level);
    bool restart(LoadedLevel& level, LVLenum reason);
    /// Ends the level in play, if any, and loads that of `current_level`.
    void changeLevel(LoadedLevel& level, LVLenum reason = LEVEL_END);

    // What stands lower goes earlier at the end.
    std::unique_ptr<XMLParser> parser;  // keeps the document alive
    std::unique_ptr<LoadedWorld> world;
    std::unique_ptr<XMLElement> game_node;
    std::unique_ptr<Starship> player;
    LevelNodes level_nodes;  // one per level, in play order
    level_node_t current_level;
    std::unique_ptr<XMLElement> user_ship_node;
    GameCallbacks handler;
    std::unique_ptr<MenuFrame> main_menu;
    BackgroundModel* bgm = nullptr;  // the menu's, like the button
    Button* continue_button = nullptr;
};
