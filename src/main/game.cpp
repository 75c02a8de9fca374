#include "main/game.h"

#include "3d/font_factory.h"
#include "3d/gfx_factory.h"
#include "game/background_model.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/level.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "game/world.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "main/menu_factory.h"
#include "main/menu_frame.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <SDL.h>

#include <array>
#include <iostream>
#include <map>
#include <utility>

namespace {

struct Section {
    const char* name;
    const char* missing;
};

// In the order in which their absence is reported.
constexpr std::array<Section, 7> sections = {{
    {"Fonts", "Game::Game: no fonts section in "},
    {"MenuConfig", "Game::Game: no menu configuration section in "},
    {"LevelSection", "Game::Game: no level section in "},
    {"IntroSection", "Game::Game: no intro section in "},
    {"PartSection", "Game::Game: no part section in "},
    {"WorldSection", "Game::Game: no world section in "},
    {"Starship", "Game::Game: no user starship in "},
}};

struct SpriteSeries {
    const char* name;
    const char* files;
    int frames;
};

constexpr SpriteSeries explosions[] = {
    {"starship_explosion", "../data/tarvex_explosion/explosion*.png", 101},
    {"torpedo_explosion", "../data/tarvex_explosion/torpedo_explosion_blue*.png", 101},
};

/// The size of the menu's panel and the places of its buttons, in eighths of a button's width and
/// halves of its height.
constexpr float panel_width = 22;
constexpr float panel_height = 24;

struct ButtonPlace {
    const char* label;
    float x, y;
    BUTTONenum id;
};

// In the order of the focus.
constexpr ButtonPlace button_places[] = {
    {"start game", 1, -10, BTN_CONTINUE}, {"quit game", -9, -10, BTN_QUIT},
    {"video", -7, 3, BTN_VIDEO},          {"audio", -4, -1, BTN_AUDIO},
    {"control", -1, -5, BTN_CONTROL},
};

using SectionNodes = std::map<std::string, XMLElement>;

// The root's children by name; of two with one name the later one counts.
SectionNodes findSections(const XMLElement& root, const std::string& filename) {
    SectionNodes nodes;
    for (XMLElement child = root.getFirstChild(); !child.isNull(); child = child.getNext())
        nodes.insert_or_assign(child.getName(), child);
    for (const auto& section : sections)
        if (!nodes.contains(section.name)) throw Exception(section.missing + filename);
    return nodes;
}

void logProgress(const std::string& text) {
    logLine(std::cout, "GAME: ", text);
}

}  // namespace

/// The level in play. A level must be gone before the next one is built, and its end may throw,
/// which no smart pointer allows.
class Game::LoadedLevel {
public:
    LoadedLevel() = default;
    ~LoadedLevel() noexcept(false) { unload(); }
    LoadedLevel(const LoadedLevel&) = delete;
    LoadedLevel& operator=(const LoadedLevel&) = delete;

    void load(const XMLElement& node, Starship* player) { level = new Level(node, player); }
    void unload() { delete std::exchange(level, nullptr); }

    /// The player's loss comes back as a result like any other.
    LVLenum run() {
        try {
            return level->run();
        } catch (const GameOverEvent&) {
            return PLAYER_KILLED;
        }
    }

private:
    Level* level = nullptr;
};

/// The catalogue of universes, there for as long as the document that it points into.
class Game::LoadedWorld {
public:
    LoadedWorld(const XMLElement& node, Game* game) { World::init(node, game); }
    ~LoadedWorld() { World::getInstance()->destroy(); }
    LoadedWorld(const LoadedWorld&) = delete;
    LoadedWorld& operator=(const LoadedWorld&) = delete;
};

Game::Game(const std::string& filename) {
    logProgress("parsing game file <" + filename + ">...");
    parser = std::make_unique<XMLParser>(filename);
    game_node = std::make_unique<XMLElement>(parser->getRootElement());
    if (game_node->getName() != "TarvexGame")
        throw Exception("Game::Game: invalid game file (root node)");
    const SectionNodes nodes = findSections(*game_node, filename);

    logProgress("loading fonts...");
    FontFactory::getInstance()->load(nodes.at("Fonts"));
    logProgress("loading menu configuration...");
    MenuFactory::createInstance(nodes.at("MenuConfig"));
    logProgress("loading parts...");
    PartStore::getInstance()->load(nodes.at("PartSection"));
    logProgress("loading levels nodes...");
    loadLevelNodes(nodes.at("LevelSection"));
    logProgress("loading world...");
    world = std::make_unique<LoadedWorld>(nodes.at("WorldSection"), this);
    logProgress("loading user starship...");
    user_ship_node = std::make_unique<XMLElement>(nodes.at("Starship"));
    player = std::make_unique<Starship>(*user_ship_node);
    buildMenu();
    logProgress("loading visual fx...");
    for (const auto& series : explosions)
        GFX_Factory::getInstance()->addAnimatedSprite(series.name, series.files, series.frames);
}

Game::~Game() = default;

void Game::start() {
    SDLContext::getInstance()->enableEvents(SDL_KEYDOWN);
    SDLContext::getInstance()->enableEvents(SDL_KEYUP);
    if (current_level == level_nodes.end() || !*current_level)
        throw Exception("Game::start: invalid iterator (current_level)");

    LoadedLevel level;
    changeLevel(level);
    for (LVLenum res = MENU_ACTIVATION; act(res, level);) {
        logProgress("running level...");
        res = level.run();
    }
}

void Game::loadLevelNodes(const XMLElement& level_section) {
    for (XMLElement child = level_section.getFirstChild(); !child.isNull(); child = child.getNext())
        level_nodes.push_back(std::make_unique<XMLElement>(child));
    current_level = level_nodes.begin();
    logLine(std::cout, "GAME: ", level_nodes.size(), " levels found");
}

void Game::buildMenu() {
    main_menu = std::make_unique<MenuFrame>();
    bgm = new BackgroundModel(player->getHull());
    main_menu->setBackground(bgm);

    for (const auto& place : button_places) {
        auto button = std::make_unique<Button>(MenuFactory::getInstance()->getButton());
        const float ww = button->getWidth() * 0.125f, hh = button->getHeight() * 0.5f;
        button->setPosition(Point4(place.x * ww, place.y * hh, 0, 1));
        button->setLabel(place.label);
        button->setId(place.id);
        button->setButtonListener(&handler);
        if (place.id == BTN_CONTINUE) {
            continue_button = button.get();
            main_menu->setWidth(panel_width * ww);
            main_menu->setHeight(panel_height * hh);
        }
        main_menu->addControl(button.release());
    }
}

bool Game::act(LVLenum res, LoadedLevel& level) {
    switch (res) {
        case MENU_ACTIVATION:
            return pause();
        case LEVEL_END:
            return goToNextLevel(level);
        case PLAYER_KILLED:
            return restart(level, PLAYER_KILLED);
        case SYSTEM_EXIT:
            return false;
        default:
            throw Exception("Game::run: unknown return value from Level::run");
    }
}

bool Game::pause() {
    const bool goes_on = main_menu->run() != MC_APP_EXIT;
    continue_button->setLabel("continue game");
    return goes_on;
}

bool Game::goToNextLevel(LoadedLevel& level) {
    if (++current_level == level_nodes.end()) return restart(level, LEVEL_END);
    level.unload();
    changeLevel(level);
    return true;
}

// Back to the first level with a new ship: all damage, stock and fuel are gone with the old one.
// The old level stays until the player decides to play on.
bool Game::restart(LoadedLevel& level, LVLenum reason) {
    logProgress("reloading player starship...");
    player.reset();
    player = std::make_unique<Starship>(*user_ship_node);
    continue_button->setLabel("start new game");
    bgm->setModel(player->getHull());
    if (main_menu->run() == MC_APP_EXIT) return false;

    continue_button->setLabel("continue game");
    current_level = level_nodes.begin();
    changeLevel(level, reason);
    return true;
}

void Game::changeLevel(LoadedLevel& level, LVLenum reason) {
    logProgress("loading and initializing level...");
    level.unload();
    if (reason == PLAYER_KILLED) logLine(std::cout, "!! GAME(5): ", "level deleted.");
    level.load(**current_level, player.get());
}
