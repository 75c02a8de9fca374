#include "game/level.h"

#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "game/world.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <exception>
#include <iostream>

namespace {

template <typename... Pieces>
void debugLine(const Pieces&... pieces) {
    logLine(std::cout, "!! GAME(5): ", pieces...);
}

/// Takes back the story that a level has created, unless the level keeps it.
class StoryHold {
public:
    StoryHold() = default;
    ~StoryHold() {
        if (held) StoryTeller::destroyInstance();
    }
    StoryHold(const StoryHold&) = delete;
    StoryHold& operator=(const StoryHold&) = delete;

    void create(const XMLElement& node) {
        StoryTeller::createInstance(node);
        held = true;
    }
    void keep() { held = false; }

private:
    bool held = false;
};

}  // namespace

Level::Level(const XMLElement& root_node, Starship* s) : star_ship(s) {
    debugLine("Level::LEvel: called");
    if (root_node.getName() != "Level")
        throw Exception("Level::Level: invalid game file (wrong node type)");
    debugLine("Level::LEvel: got first child");

    readGalaxies(root_node);
    debugLine("Level::Level: got galaxies");
    start_position = root_node.getAttributeAsPoint("user_starship_position");
    start_facing = readFacing(root_node, "user_starship_orientation", "user_starship_up");
    debugLine("Level::Level: starship start position");
    readChildren(root_node);
    debugLine("Level::Level: music done");
    placeShip();
    debugLine("Level::Level: starship set");
}

// The end of a story that is not there throws.
Level::~Level() noexcept(false) {
    galaxies.clear();
    const bool failing = std::uncaught_exceptions() > 0;
    if (StoryTeller::getInstance() || !failing) StoryTeller::destroyInstance();
}

LVLenum Level::run() {
    try {
        return galaxies.at(current_galaxy)->run(star_ship);
    } catch (const LevelEndEvent& end) {
        switch (end.getType()) {
            case LE_FINISHED:
                return LEVEL_END;
            case LE_GAME_OVER:
                return PLAYER_KILLED;
            default:
                return SYSTEM_EXIT;
        }
    }
}

void Level::readGalaxies(const XMLElement& root_node) {
    const int universe = root_node.getAttributeAsInt("universe_id", 10);
    logLine(std::cout, "GAME: ", "loading galaxies (universe ", universe, ")...");
    galaxies = World::getInstance()->getGalaxies(universe);

    current_galaxy = root_node.getAttributeAsInt("start_galaxy", 10);
    if (!galaxies.contains(current_galaxy))
        throw Exception("Level::Level: start galaxy doesn't exist (id " +
                        std::to_string(current_galaxy) + ")");
}

void Level::readChildren(const XMLElement& root_node) {
    StoryHold story;
    for (XMLElement child = root_node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string name = child.getName();
        if (name == "Soundtrack") {
            debugLine("Adding background music: ", child.getAttributeAsString("file"));
        } else if (name == "StoryTeller") {
            story.create(child);
            debugLine("StoryTelle configured ");
        } else {
            throw Exception("Level::Level: invalid game file (wrong node type: " + name + ")");
        }
    }
    story.keep();
}

void Level::placeShip() {
    star_ship->setPosition(start_position);
    star_ship->setOrientation(start_facing.orientation);
    star_ship->setHeading(start_facing.orientation);
    star_ship->setUp(start_facing.up);
}
