#include "game/battery_interface.h"

#include "game/cockpit.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "main/exception.h"
#include "xml/xml_element.h"

BatteryInterface::BatteryInterface(const XMLElement& node, Cockpit* owner)
    : _CockpitBarControl(node, owner) {
    if (node.getName() != "BatteryInterface")
        throw Exception("BatteryInterface::BatteryInterface: wrong XML node type: " +
                        node.getName());
}

std::unique_ptr<_CockpitControl> BatteryInterface::clone() const {
    return std::make_unique<BatteryInterface>(*this);
}

float BatteryInterface::getData() const {
    const Reactor& reactor = *cockpit->getParentShip()->getReactor();
    return reactor.getBatCharge() / static_cast<float>(reactor.getBatSize());
}
