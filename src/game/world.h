#pragma once

#include "xml/xml_element.h"

#include <map>
#include <memory>

class Galaxy;
class Game;

/// The catalogue of universes. It keeps their elements of the game file alone; a universe turns
/// into live objects when a level asks for it, and every level gets its own.
class World {
public:
    /// Creates the one world from a "WorldSection" element. Throws Exception on a second call and
    /// on another element.
    static void init(const XMLElement& root, Game* g);
    /// Throws Exception before init().
    static World* getInstance();
    /// Ends the world; init() may be called again.
    void destroy();

    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Builds all galaxies of the universe with that id, by their own ids. Throws Exception when
    /// there is no such universe.
    std::map<int, std::unique_ptr<Galaxy>> getGalaxies(int index) const;

private:
    explicit World(const XMLElement& root);

    static std::unique_ptr<World> instance;
    static Game* game;

    std::map<int, XMLElement> universe_nodes;
};
