#include "game/starship_part.h"

#include "main/exception.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <limits>

void _StarshipPart::checkElement(const XMLElement& node, const std::string& part) {
    if (node.getName() != part) throw Exception(part + "::" + part + ": wrong XML node type");
}

void _StarshipPart::readNameAndMass(const XMLElement& node) {
    setName(node.getAttributeAsString("name"));
    setMass(readNumber(node, "mass"));
}

unsigned long _StarshipPart::readNumber(const XMLElement& node, const std::string& attribute,
                                        unsigned long least) {
    const long value = node.getAttributeAsLong(attribute, 10);
    if (value < 0 || static_cast<unsigned long>(value) < least) {
        throw Exception(node.getName() + ": attribute " + attribute + ": " + std::to_string(value) +
                        " is below " + std::to_string(least));
    }
    return static_cast<unsigned long>(value);
}

int _StarshipPart::readInt(const XMLElement& node, const std::string& attribute,
                           unsigned long least) {
    constexpr unsigned long largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(readNumber(node, attribute, least), largest));
}
