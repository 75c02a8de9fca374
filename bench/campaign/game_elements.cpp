#include "bench/campaign/game_elements.h"

#include "game/game_object.h"
#include "main/exception.h"

namespace {

constexpr int player_id = 1;

XMLElement findChild(const XMLElement& parent, const std::string& name, int id) {
    XMLElement found(nullptr);
    elements::forEachChild(parent, name, [&](const XMLElement& child) {
        if (child.getAttributeAsInt("id", 10) == id) found = child;
    });
    if (found.isNull()) throw Exception("no " + name + " with the id " + std::to_string(id));
    return found;
}

}  // namespace

std::map<std::string, XMLElement> elements::findSections(const XMLElement& root) {
    std::map<std::string, XMLElement> sections;
    for (XMLElement child = root.getFirstChild(); !child.isNull(); child = child.getNext())
        sections.insert_or_assign(child.getName(), child);
    return sections;
}

XMLElement elements::findGalaxy(const XMLElement& world, const XMLElement& level) {
    const XMLElement universe =
        findChild(world, "Universe", level.getAttributeAsInt("universe_id", 10));
    return findChild(universe, "Galaxy", level.getAttributeAsInt("start_galaxy", 10));
}

std::set<int> elements::findEnemies(const XMLElement& galaxy) {
    std::set<int> enemies;
    forEachChild(galaxy, "Starship", [&](const XMLElement& ship) {
        forEachChild(ship, "AIControl", [&](const XMLElement& pilot) {
            forEachChild(pilot, "AITarget", [&](const XMLElement& target) {
                if (target.getAttributeAsInt("id", 10) == player_id)
                    enemies.insert(ship.getAttributeAsInt("id", 10) | GO_STARSHIP);
            });
        });
    });
    return enemies;
}
