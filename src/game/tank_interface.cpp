#include "game/tank_interface.h"

#include "game/cockpit.h"
#include "game/starship.h"
#include "game/tank.h"
#include "main/exception.h"
#include "xml/xml_element.h"

TankInterface::TankInterface(const XMLElement& node, Cockpit* owner)
    : _CockpitBarControl(node, owner) {
    if (node.getName() != "TankInterface")
        throw Exception("TankInterface::TankInterface: wrong XML node type: " + node.getName());
}

std::unique_ptr<_CockpitControl> TankInterface::clone() const {
    return std::make_unique<TankInterface>(*this);
}

float TankInterface::getData() const {
    const Tank& tank = *cockpit->getParentShip()->getTank();
    return tank.getFuel() / tank.getCapacity();
}
