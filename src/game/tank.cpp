#include "game/tank.h"

#include "game/game_event.h"
#include "xml/xml_element.h"

#include <utility>

Tank::Tank(const XMLElement& node) : _StarshipPart(PRT_TANK) {
    checkElement(node, "Tank");
    readNameAndMass(node);
    setSize(readNumber(node, "size"));
    capacity = static_cast<unsigned int>(readInt(node, "fuel", 1));
    fuel = static_cast<float>(capacity);
}

float Tank::drawFuel(float f) {
    if (fuel == 0) throw TankEmptyEvent(parent_ship);

    if (fuel > f) {
        fuel -= f;
        return f;
    }
    return std::exchange(fuel, 0.0f);
}
