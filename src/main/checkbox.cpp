#include "main/checkbox.h"

#include "main/checkbox_listener.h"
#include "main/exception.h"
#include "xml/xml_element.h"

Checkbox::Checkbox(const XMLElement& node) : _MenuControl(node) {
    if (getType() != MC_CHECKBOX)
        throw Exception("Checkbox::Checkbox: wrong XML node type (" + node.getName() + ")");
    tex_deactivated = loadPicture(node, "img_deactivated");
    tex_normal = loadPicture(node, "img_idle");
    tex_highlighted = loadPicture(node, "img_highlighted");
    tex_checked_deactivated = loadPicture(node, "img_checked_deactivated");
    tex_checked_normal = loadPicture(node, "img_checked_idle");
    tex_checked_highlighted = tex_checked_normal;  // a ticked box shows no highlight
}

Checkbox::Checkbox(const Checkbox& other)
    : _MenuControl(other),
      checked(other.checked),
      tex_deactivated(other.tex_deactivated),
      tex_normal(other.tex_normal),
      tex_highlighted(other.tex_highlighted),
      tex_checked_deactivated(other.tex_checked_deactivated),
      tex_checked_normal(other.tex_checked_normal),
      tex_checked_highlighted(other.tex_checked_highlighted) {}

void Checkbox::drawControl(DRWenum /*mode*/) const {
    switch (state) {
        case MC_IDLE:
            return drawPicture(checked ? *tex_checked_normal : *tex_normal);
        case MC_HIGHLIGHTED:
            return drawPicture(checked ? *tex_checked_highlighted : *tex_highlighted);
        case MC_DEACTIVATED:
            return drawPicture(checked ? *tex_checked_deactivated : *tex_deactivated);
        default:
            throw Exception("Checkbox::drawControl: invalid state");
    }
}

MCRESULTenum Checkbox::handleMouseDown(const Point4& p) {
    if (state == MC_DEACTIVATED || !isInside(p)) return MC_NOT_HANDELED;
    clicked = true;
    state = MC_HIGHLIGHTED;
    return handleAction(MC_ACTION);
}

MCRESULTenum Checkbox::handleMouseUp(const Point4& /*p*/) {
    if (!clicked) return MC_NOT_HANDELED;
    state = MC_HIGHLIGHTED;
    return MC_HANDELED;
}

MCRESULTenum Checkbox::handleAction(MCACTIONenum action) {
    if (action != MC_ACTION) return MC_NOT_HANDELED;
    checked = !checked;
    if (checkbox_listener) checkbox_listener->check(getId(), checked);
    return MC_HANDELED;
}
