#include "game/radar_interface.h"

#include "game/cockpit.h"
#include "game/galaxy.h"
#include "game/starship.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <GL/gl.h>

#include <iostream>
#include <optional>

namespace {

constexpr unsigned int type_bits = 0xf000;
constexpr float point_size = 5, target_size = 7;  // pixels

/// From the end of the range to the ship itself.
float alphaOf(float closeness) {
    constexpr float faintest = 0.3f;
    return closeness * (1 - faintest) + faintest;
}

/// The colour of a kind of object; none for what is not plotted.
std::optional<ColorRGBA> colorOf(unsigned int type, float alpha) {
    switch (type) {
        case GO_STARSHIP:
            return ColorRGBA(1, 0, 0, alpha);
        case GO_PLANET:
            return ColorRGBA(0.3f, 0.4f, 0.8f, alpha);
        case GO_TORPEDO:
            return ColorRGBA(0.8f, 0.4f, 0.2f, alpha);
        case GO_LASER:
            return std::nullopt;
        default:
            return ColorRGBA(0.5f, 0.5f, 0.5f, alpha);
    }
}

void drawPoint(const Point4& place, float size, const ColorRGBA& color) {
    glPointSize(size);
    color.activate();
    glBegin(GL_POINTS);
    glVertex2f(place.x, place.y);
    glEnd();
}

}  // namespace

RadarInterface::RadarInterface(const XMLElement& node, Cockpit* owner)
    : _CockpitControl(node, owner),
      type(getType() == CPCTRL_RADAR_INTERFACE_BACK ? RADAR_BACK : RADAR_FRONT) {
    if (getType() != CPCTRL_RADAR_INTERFACE_FRONT && getType() != CPCTRL_RADAR_INTERFACE_BACK)
        throw Exception("RadarInterface::RadarInterface: wrong XML node type: " + node.getName());
}

std::unique_ptr<_CockpitControl> RadarInterface::clone() const {
    return std::make_unique<RadarInterface>(*this);
}

void RadarInterface::drawControl(float x, float y, float w, float h) const {
    const Starship* ship = cockpit->getParentShip();
    if (!ship) {
        logLine(std::cerr, "ERROR (GAME): ", "RadarInterface::drawControl: starship null pointer");
        return;
    }
    const Radar* radar = ship->getRadar();
    if (!radar) return;

    const ObjectSlot selection = ship->getSelectedObject();
    const _GameObject* target = selection ? *selection : nullptr;
    const float w2 = 0.5f * w;
    const float h2 = 0.5f * h;
    glPushMatrix();
    glTranslatef(x + w2, y + h2, 0);
    for (const radar_obj_t& seen : radar->detectObjects(type)) {
        const float alpha = alphaOf(seen.pos.z);
        const Point4 place(seen.pos.x * w2, seen.pos.y * h2, 0, 1);
        if (target && *ship->getGalaxy()->getObjectById(static_cast<int>(seen.id)) == target)
            drawPoint(place, target_size, ColorRGBA(1, 1, 0, alpha));
        else if (const auto color = colorOf(seen.id & type_bits, alpha))
            drawPoint(place, point_size, *color);
    }
    glPopMatrix();
}
