#include "game/cockpit_control.h"

#include "3d/bitmap.h"
#include "3d/bitmap_factory.h"
#include "3d/opengl.h"
#include "main/exception.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>

namespace {

constexpr unsigned all_bits = ~0U;
constexpr auto no_alignment = static_cast<ALIGNMENTenum>(0);
constexpr float overhang = 1;  // pixels by which the fill is larger than the mask on each side

/// One side of a mask: its bits in the alignment, and the share of the mask that lies before it,
/// counted from the left or from below.
struct Side {
    int bits;
    float share;
};

constexpr Side horizontal_sides[] = {{0x10, 0}, {0x20, 0.5f}, {0x40, 1}};
constexpr Side vertical_sides[] = {{0x01, 1}, {0x02, 0.5f}, {0x04, 0}};

template <typename Sides>
float shareBefore(const Sides& sides, int bits, const char* axis) {
    const auto side = std::ranges::find(sides, bits, &Side::bits);
    if (side == std::end(sides))
        throw Exception(std::string("_CockpitControl::getPosition: invalid alignment (") + axis +
                        ")");
    return side->share;
}

CPCTRLenum readType(const XMLElement& node) {
    static const std::map<std::string, CPCTRLenum> types = {
        {"RadarInterfaceFront", CPCTRL_RADAR_INTERFACE_FRONT},
        {"RadarInterfaceBack", CPCTRL_RADAR_INTERFACE_BACK},
        {"MFD", CPCTRL_MFD},
        {"BatteryInterface", CPCTRL_BATTERY_INTERFACE},
        {"Speedometer", CPCTRL_SPEEDOMETER},
        {"TankInterface", CPCTRL_TANK_INTERFACE},
    };
    const auto type = types.find(node.getName());
    if (type == types.end())
        throw Exception("CockpitControl::CockpitControl: invalid control type: " + node.getName());
    return type->second;
}

ALIGNMENTenum readAlignment(const XMLElement& node) {
    static const std::map<std::string, ALIGNMENTenum> alignments = {
        {"left|top", LEFT_TOP},           {"left|center", LEFT_CENTER},
        {"left|bottom", LEFT_BOTTOM},     {"center|top", CENTER_TOP},
        {"center|center", CENTER_CENTER}, {"center|bottom", CENTER_BOTTOM},
        {"right|top", RIGHT_TOP},         {"right|center", RIGHT_CENTER},
        {"right|bottom", RIGHT_BOTTOM},
    };
    const auto alignment = alignments.find(node.getAttributeAsString("alignement"));
    return alignment == alignments.end() ? no_alignment : alignment->second;
}

int toPixel(float coordinate) {
    constexpr float far_outside = 1e6f;  // of any window
    return static_cast<int>(std::clamp(coordinate, -far_outside, far_outside));
}

}  // namespace

_CockpitControl::_CockpitControl(const XMLElement& node, Cockpit* owner)
    : type(readType(node)),
      rel_pos(node.getAttributeAsPoint("pos_rel")),
      alignment(readAlignment(node)),
      mask(BitmapFactory::getInstance()->getBitmap(node.getAttributeAsString("mask"))),
      background(node.getAttributeAsColor("background")),
      foreground(node.getAttributeAsColor("foreground")),
      cockpit(owner) {}

int _CockpitControl::getWidth() const {
    return mask->getWidth();
}

int _CockpitControl::getHeight() const {
    return mask->getHeight();
}

Point4 _CockpitControl::getPosition() const {
    const SDLContext& window = *SDLContext::getInstance();
    const float left = shareBefore(horizontal_sides, alignment & 0xf0, "X");
    const float below = shareBefore(vertical_sides, alignment & 0x0f, "Y");
    return {
        static_cast<float>(window.getWidth()) * rel_pos.x - left * static_cast<float>(getWidth()),
        static_cast<float>(window.getHeight()) * rel_pos.y -
            below * static_cast<float>(getHeight()),
        0, 0};
}

void _CockpitControl::drawStencil() const {
    const Point4 p = getPosition();
    const StencilBuffer& stencil = OpenGLContext::getInstance()->getStencilBuffer();
    stencil.setStencilFunc(GL_ALWAYS, type, all_bits);
    stencil.setStencilOp(GL_REPLACE, GL_REPLACE, GL_REPLACE);
    stencil.activate();
    mask->draw(toPixel(p.x), toPixel(p.y), -1, true);
    stencil.deactivate();
}

void _CockpitControl::draw() const {
    const Point4 p = getPosition();
    const auto w = static_cast<float>(getWidth());
    const auto h = static_cast<float>(getHeight());
    const StencilBuffer& stencil = OpenGLContext::getInstance()->getStencilBuffer();
    stencil.setStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    stencil.setStencilFunc(GL_EQUAL, type, all_bits);
    stencil.activate();
    background.activate();
    glDisable(GL_DEPTH_TEST);
    glBegin(GL_QUADS);
    glVertex2f(p.x - overhang, p.y - overhang);
    glVertex2f(p.x + w + overhang, p.y - overhang);
    glVertex2f(p.x + w + overhang, p.y + h + overhang);
    glVertex2f(p.x - overhang, p.y + h + overhang);
    glEnd();
    drawControl(p.x, p.y, w, h);
    stencil.deactivate();
}
