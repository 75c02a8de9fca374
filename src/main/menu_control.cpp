#include "main/menu_control.h"

#include "3d/font.h"
#include "3d/font_factory.h"
#include "3d/texture.h"
#include "main/exception.h"
#include "xml/xml_element.h"

#include <GL/gl.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr struct {
    const char* element;
    MCTYPEenum type;
} types[] = {
    {"MenuButton", MC_BUTTON},
    {"MenuCheckbox", MC_CHECKBOX},
    {"MenuScrollBar", MC_SCROLLBAR},
};

/// How a label lies against its control.
constexpr float button_indent = 20;
constexpr float button_rise = 3;
constexpr float label_distance = 100;  // to the left of what is no button

MCTYPEenum readType(const XMLElement& node) {
    const std::string name = node.getName();
    const auto* found = std::find_if(std::begin(types), std::end(types),
                                     [&](const auto& t) { return t.element == name; });
    if (found == std::end(types))
        throw Exception("_MenuControl::_MenuControl: wrong XML node type (" + name + ")");
    return found->type;
}

float readSize(const XMLElement& node, const std::string& attribute) {
    const float size = node.getAttributeAsFloat(attribute);
    if (size < 0) throw Exception(node.getName() + ": attribute " + attribute + " is below 0");
    return size;
}

}  // namespace

_MenuControl::_MenuControl(const XMLElement& node)
    : type(readType(node)),
      color(node.getAttributeAsColor("color")),
      width(readSize(node, "width")),
      height(readSize(node, "height")),
      font(FontFactory::getInstance()->getFont(node.getAttributeAsString("font"))) {}

void _MenuControl::draw(DRWenum mode) const {
    drawControl(mode);
    font->write(label_position.x, label_position.y, label,
                new ColorRGB(color.getRed(), color.getGreen(), color.getBlue()), DRAW_FLAT);
}

void _MenuControl::setPosition(const Point4& p) {
    position = p;
    const bool inside = type == MC_BUTTON;
    const float letter = font->getCharHeight(inside ? 'A' : 'H');
    const float middle = p.y + (height - letter) * 0.5f;
    setLabelPosition(inside ? Point4(p.x + button_indent, middle + button_rise, p.z, 1)
                            : Point4(p.x - label_distance, middle, p.z, 1));
}

MCRESULTenum _MenuControl::handleMouseDown(const Point4& p) {
    if (state != MC_IDLE && state != MC_HIGHLIGHTED) return MC_NOT_HANDELED;
    if (!isInside(p)) return MC_NOT_HANDELED;
    state = MC_PRESSED;
    return MC_HANDELED;
}

MCRESULTenum _MenuControl::handleMouseMove(const Point4& p) {
    if (state == MC_IDLE || !isInside(p)) return MC_NOT_HANDELED;
    state = MC_HIGHLIGHTED;
    return MC_HANDELED;
}

MCRESULTenum _MenuControl::handleMouseUp(const Point4& /*p*/) {
    if (state != MC_PRESSED) return MC_NOT_HANDELED;
    state = MC_HIGHLIGHTED;
    return handleAction(MC_ACTION);
}

void _MenuControl::activate() {
    if (state == MC_DEACTIVATED) state = MC_IDLE;
}

void _MenuControl::deactivate() {
    if (state == MC_IDLE) state = MC_DEACTIVATED;
}

void _MenuControl::setHighlighted(bool hl) {
    if (state == (hl ? MC_IDLE : MC_HIGHLIGHTED)) state = hl ? MC_HIGHLIGHTED : MC_IDLE;
}

bool _MenuControl::isInside(const Point4& p) const {
    return position.x <= p.x && p.x <= position.x + width && position.y <= p.y &&
           p.y <= position.y + height;
}

void _MenuControl::drawPicture(const Texture& picture) const {
    const float right = position.x + width, top = position.y + height;
    picture.activate();
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(position.x, position.y);
    glTexCoord2f(1, 0);
    glVertex2f(right, position.y);
    glTexCoord2f(1, 1);
    glVertex2f(right, top);
    glTexCoord2f(0, 1);
    glVertex2f(position.x, top);
    glEnd();
}

std::shared_ptr<const Texture> _MenuControl::loadPicture(const XMLElement& node,
                                                         const std::string& attribute) {
    return std::make_shared<Texture>(node.getAttributeAsString(attribute), GL_REPLACE, false);
}
