#include "game/world.h"

#include "game/galaxy.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

std::unique_ptr<World> World::instance;
Game* World::game = nullptr;

void World::init(const XMLElement& root, Game* g) {
    if (instance) throw Exception("World::init: already initialized");
    instance.reset(new World(root));
    game = g;
}

World* World::getInstance() {
    if (!instance) throw Exception("World::getInstance: not initialized; call init first");
    return instance.get();
}

void World::destroy() {
    instance.reset();
}

World::World(const XMLElement& root) {
    if (root.getName() != "WorldSection")
        throw Exception("World::World: invalid game file (wrong node type)");

    int count = 0;
    for (XMLElement child = root.getFirstChild(); !child.isNull(); child = child.getNext()) {
        universe_nodes.insert_or_assign(child.getAttributeAsInt("id", 10), child);
        ++count;
    }
    logLine(std::cout, "GAME: ", "total of ", count, " galaxies...");
}

std::map<int, std::unique_ptr<Galaxy>> World::getGalaxies(int index) const {
    const auto universe = universe_nodes.find(index);
    if (universe == universe_nodes.end())
        throw Exception("World::getUniverse: Universe doesn't exist (wrong id)");
    if (universe->second.getName() != "Universe")
        throw Exception("World::getUniverse: invalid game file (wrong node type (Universe))");

    std::map<int, std::unique_ptr<Galaxy>> galaxies;
    int count = 0;
    for (XMLElement child = universe->second.getFirstChild(); !child.isNull();
         child = child.getNext()) {
        logLine(std::cout, "GAME: ", "creating galaxy ", count++);
        const int id = child.getAttributeAsInt("id", 10);
        galaxies[id] = std::make_unique<Galaxy>(child, game);
    }
    logLine(std::cout, "GAME: ", count, " glaxies created");
    return galaxies;
}
