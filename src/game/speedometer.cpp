#include "game/speedometer.h"

#include "game/cockpit.h"
#include "game/control.h"
#include "game/starship.h"
#include "main/exception.h"
#include "xml/xml_element.h"

Speedometer::Speedometer(const XMLElement& node, Cockpit* owner) : _CockpitBarControl(node, owner) {
    if (node.getName() != "Speedometer")
        throw Exception("Speedometer::Speedometer: wrong XML node type: " + node.getName());
}

std::unique_ptr<_CockpitControl> Speedometer::clone() const {
    return std::make_unique<Speedometer>(*this);
}

float Speedometer::getData() const {
    return static_cast<float>(cockpit->getParentShip()->getControl()->getThrottle()) / 100;
}
