#include "main/button.h"

#include "main/button_listener.h"
#include "main/exception.h"
#include "xml/xml_element.h"

Button::Button(const XMLElement& node) : _MenuControl(node) {
    if (getType() != MC_BUTTON)
        throw Exception("MenuButton::MenuButton: wrong XML node type (" + node.getName() + ")");
    tex_deactivated = loadPicture(node, "img_deactivated");
    tex_normal = loadPicture(node, "img_idle");
    tex_highlighted = loadPicture(node, "img_highlighted");
    tex_pressed = loadPicture(node, "img_pressed");
}

Button::Button(const Button& other)
    : _MenuControl(other),
      tex_deactivated(other.tex_deactivated),
      tex_normal(other.tex_normal),
      tex_highlighted(other.tex_highlighted),
      tex_pressed(other.tex_pressed) {}

void Button::drawControl(DRWenum /*mode*/) const {
    switch (state) {
        case MC_IDLE:
            return drawPicture(*tex_normal);
        case MC_HIGHLIGHTED:
            return drawPicture(*tex_highlighted);
        case MC_PRESSED:
            return drawPicture(*tex_pressed);
        case MC_DEACTIVATED:
            return drawPicture(*tex_deactivated);
        default:
            throw Exception("Button::drawControl: invalid state");
    }
}

MCRESULTenum Button::handleAction(MCACTIONenum action) {
    if (action != MC_ACTION || !button_listener) return MC_NOT_HANDELED;
    return button_listener->press(getId());
}
