#pragma once

#include "game/part_store.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>

/// The fighting ships of the shipped game, as text to make others of. Run from the build folder.
namespace fighters {

inline const std::string game_file = "../data/game.xml";

inline std::string readGame() {
    std::ifstream file(game_file);
    return {std::istreambuf_iterator(file), {}};
}

inline XMLElement findChild(const XMLElement& parent, const std::string& name) {
    XMLElement child = parent.getFirstChild();
    while (!child.isNull() && child.getName() != name) child = child.getNext();
    return child;
}

inline void loadParts() {
    const XMLParser parser(game_file);
    PartStore::getInstance()->load(findChild(parser.getRootElement(), "PartSection"));
}

/// The kinds of ship that carry weapons, by the name of their hull: one element for each.
inline std::map<std::string, std::string> findKinds(const std::string& game) {
    static const std::regex ship("<Starship [^]*?</Starship>"), hull("hull=\"([^\"]*)\"");
    std::map<std::string, std::string> kinds;
    for (std::sregex_iterator found(game.begin(), game.end(), ship), end; found != end; ++found) {
        const std::string text = found->str();
        std::smatch name;
        if (text.find("<CannonConfig") != std::string::npos && std::regex_search(text, name, hull))
            kinds.emplace(name[1], text);
    }
    return kinds;
}

/// A pilot that patrols between the points, given as "NavEntry" elements, and attacks the ships of
/// the "AITarget" elements.
inline std::string makePilot(const std::string& ways, const std::string& targets) {
    return "<AIControl><IdleModule tolerance='50'>" + ways +
           "</IdleModule><TacticalModule/><DefenseModule/><AttackModule/>" + targets +
           "</AIControl>";
}

/// The ship with that id, with another control.
inline std::string makeShip(const std::string& ship, int id, const std::string& pilot) {
    static const std::regex number(" id=\"\\d+\""),
        control("<(User|AI\\w*)Control[^>]*/>|<AIControl>[^]*</AIControl>");
    const std::string numbered = std::regex_replace(
        ship, number, " id='" + std::to_string(id) + "'", std::regex_constants::format_first_only);
    return std::regex_replace(numbered, control, pilot);
}

/// The head of the first galaxy of the game, and ships in it.
inline std::string makeGalaxy(const std::string& game, const std::string& ships) {
    static const std::regex galaxy("<Galaxy [^>]*>");
    std::smatch head;
    std::regex_search(game, head, galaxy);
    return "<!DOCTYPE Fight>" + head.str() + ships + "</Galaxy>";
}

}  // namespace fighters
