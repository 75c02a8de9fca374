#include "game/cloak.h"

#include "xml/xml_element.h"

Cloak::Cloak(const XMLElement& node) : _StarshipPart(PRT_CLOAK) {
    checkElement(node, "Cloak");
    readNameAndMass(node);
    setSize(readNumber(node, "size"));
    setPower(readNumber(node, "power"));
    cloak_cat = static_cast<unsigned int>(readInt(node, "cloak_cat"));
}
