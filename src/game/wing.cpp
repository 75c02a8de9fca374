#include "game/wing.h"

#include "xml/xml_element.h"

Wing::Wing(const XMLElement& node) : _StarshipPart(PRT_WING), _3D_Rep(SLOT_WING) {
    checkElement(node, "Wing");
    readNameAndMass(node);
    readBody(node);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        if (child.getName() != "Slot") {
            throw Exception("Wing::Wing: Wrong subelement in Wing (" + child.getName() + ")");
        }
        readSlot(child, "Wing");
    }
}
