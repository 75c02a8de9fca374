#include "game/engine.h"

#include "3d/ase_object.h"
#include "game/starship.h"
#include "game/tank.h"
#include "xml/xml_element.h"

#include <algorithm>

Engine::Engine(const XMLElement& node) : _StarshipPart(PRT_ENGINE), _3D_Rep(SLOT_ENGINE) {
    checkElement(node, "Engine");
    readNameAndMass(node);
    setPower(readNumber(node, "power"));
    setSize(0);
    set3DObject(std::make_shared<AseObject>(node.getAttributeAsString("rep3d"), MTL_TEX_ONLY,
                                            BOUNDING_BOX, false));
    setResistance(static_cast<float>(node.getAttributeAsInt("resistance", 10)));
    efficiency = readNumber(node, "efficiency", 1);
    v_max = static_cast<unsigned long>(readInt(node, "v_max", 1));
    a_max = static_cast<unsigned long>(readInt(node, "a_max"));
    sound = node.getAttributeAsString("file");
    cost = 10 * static_cast<float>(v_max) / static_cast<float>(efficiency);
}

float Engine::getVelocity(float current, unsigned int throttle, int time_diff) {
    const auto opening = static_cast<float>(throttle);
    const auto milliseconds = static_cast<float>(time_diff);
    // What the tank could deliver does not matter: a nearly dry one gives full thrust once more.
    parent_ship->getTank()->drawFuel(opening * cost * milliseconds / 1000);

    const float target = opening * static_cast<float>(v_max) / 100;
    const float step = static_cast<float>(a_max) * milliseconds / 1000;
    if (target > current) return std::min(current + step, target);
    return std::max(current - step, target);
}

void Engine::draw(DRWenum mode) const {
    if (get3DObject()) get3DObject()->draw(mode);
}
