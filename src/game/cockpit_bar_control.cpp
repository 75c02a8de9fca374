#include "game/cockpit_bar_control.h"

#include "main/exception.h"
#include "xml/xml_element.h"

#include <GL/gl.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace {

struct Direction {
    const char* name;
    CPBCTRLDIRenum value;
};

constexpr Direction directions[] = {
    {"left", CPBCTRLDIR_LEFT},
    {"right", CPBCTRLDIR_RIGHT},
    {"up", CPBCTRLDIR_UP},
    {"down", CPBCTRLDIR_DOWN},
};

CPBCTRLDIRenum readDirection(const XMLElement& node) {
    const std::string text = node.getAttributeAsString("direction");
    const auto* direction = std::ranges::find(directions, text, &Direction::name);
    if (direction != std::end(directions)) return direction->value;

    std::string known;
    for (const Direction& d : directions)
        known += (known.empty() ? "" : ", ") + std::string(d.name);
    throw Exception("_CockpitBarControl::_CockpitBarControl: invalid direction (" + text +
                    "but must be one of the following: " + known + ")");
}

/// A point of the mask, in shares of its width and height.
struct Corner {
    float x, y;
};

/// A bar that is filled to the share `p`: two corners where it starts, two at its tip. In turn
/// around the bar: start, tip, tip, start.
struct Bar {
    Corner corners[4];
};

Bar barOf(CPBCTRLDIRenum direction, float p) {
    const float rest = 1 - p;
    switch (direction) {
        case CPBCTRLDIR_LEFT:
            return {{{1, 1}, {rest, 1}, {rest, 0}, {1, 0}}};
        case CPBCTRLDIR_RIGHT:
            return {{{0, 0}, {p, 0}, {p, 1}, {0, 1}}};
        case CPBCTRLDIR_UP:
            return {{{1, 0}, {1, p}, {0, p}, {0, 0}}};
        case CPBCTRLDIR_DOWN:
            return {{{0, 1}, {0, rest}, {1, rest}, {1, 1}}};
    }
    throw Exception("_CockpitBarControl::drawControl: invalid direction value");
}

}  // namespace

_CockpitBarControl::_CockpitBarControl(const XMLElement& node, Cockpit* owner)
    : _CockpitControl(node, owner) {
    const CPCTRLenum kind = getType();
    if (kind != CPCTRL_BATTERY_INTERFACE && kind != CPCTRL_SPEEDOMETER &&
        kind != CPCTRL_TANK_INTERFACE)
        throw Exception("_CockpitBarControl::_CockpitBarControl: invalid node type: " +
                        node.getName());
    direction = readDirection(node);
    start_color = node.getAttributeAsColor("start_color");
    end_color = node.getAttributeAsColor("end_color");
}

void _CockpitBarControl::drawControl(float x, float y, float w, float h) const {
    const float p = getData();
    const ColorRGBA tip_color = start_color + (end_color - start_color) * p;
    const Bar bar = barOf(direction, p);
    const auto place = [&](const Corner& corner) {
        glVertex2f(x + corner.x * w, y + corner.y * h);
    };
    glBegin(GL_QUADS);
    start_color.activate();
    place(bar.corners[0]);
    tip_color.activate();
    place(bar.corners[1]);
    place(bar.corners[2]);
    start_color.activate();
    place(bar.corners[3]);
    glEnd();
    printData(x, y, w, h);
}
