#pragma once

#include "xml/xml_element.h"

#include <map>
#include <set>
#include <string>

/// Looks things up in the game file that the game itself does not tell.
namespace elements {

/// Calls `visit` with every child of that name.
template <class Visit>
void forEachChild(const XMLElement& parent, const std::string& name, Visit visit) {
    for (XMLElement child = parent.getFirstChild(); !child.isNull(); child = child.getNext())
        if (child.getName() == name) visit(child);
}

/// The children of the root by their names.
std::map<std::string, XMLElement> findSections(const XMLElement& root);
/// The galaxy in which a "Level" element is flown, out of the "WorldSection". Throws Exception when
/// it is not there.
XMLElement findGalaxy(const XMLElement& world, const XMLElement& level);
/// The ids of the ships of a galaxy that attack the player's.
std::set<int> findEnemies(const XMLElement& galaxy);

}  // namespace elements
