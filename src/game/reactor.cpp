#include "game/reactor.h"

#include "game/starship.h"
#include "game/tank.h"
#include "xml/xml_element.h"

#include <algorithm>

namespace {

constexpr float start_charge = 0.1f;  // share of the battery that a new ship finds loaded

}  // namespace

Reactor::Reactor(const XMLElement& node) : _StarshipPart(PRT_REACTOR) {
    checkElement(node, "Reactor");
    readNameAndMass(node);
    setSize(readNumber(node, "size"));
    consumption = readNumber(node, "consumption");
    efficiency = readNumber(node, "efficiency", 1);
    bat_size = readNumber(node, "bat_size", 1);
    battery = static_cast<float>(bat_size) * start_charge;
}

void Reactor::update(int time_diff) {
    const auto capacity = static_cast<float>(bat_size);
    const auto gain = static_cast<float>(efficiency);  // charge for 1000 units of fuel

    const float fuel_to_fill = 1000 * (capacity - battery) / gain;
    const float fuel_of_frame =
        static_cast<float>(time_diff) * static_cast<float>(consumption) / 1000;
    const float fuel = parent_ship->getTank()->drawFuel(std::min(fuel_to_fill, fuel_of_frame));
    // Rounding must not overfill the battery: the next frame would give fuel back.
    battery = std::min(battery + fuel * gain / 1000, capacity);
}

float Reactor::drawPower(float amount) {
    const float taken = std::min(amount, battery);
    battery -= taken;
    return taken;
}

float Reactor::drawPower(float amount, float min) {
    if (min > battery) return 0;
    return drawPower(amount);
}
