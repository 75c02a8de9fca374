#pragma once

#include "main/menu_control.h"

class _ButtonListener;

/// A menu's button. It acts when it is released, wherever the pointer is then, and on Return.
class Button : public _MenuControl {
public:
    /// Reads a "MenuButton" element. Throws Exception on any other, and on a picture that cannot be
    /// loaded.
    explicit Button(const XMLElement& node);
    /// The copy shares the pictures and has no listener.
    Button(const Button& other);

    void drawControl(DRWenum mode) const override;
    /// Tells the listener and returns what it says.
    MCRESULTenum handleAction(MCACTIONenum action) override;

    /// Not owned; null for none.
    void setButtonListener(_ButtonListener* l) { button_listener = l; }

private:
    using Picture = std::shared_ptr<const Texture>;

    _ButtonListener* button_listener = nullptr;
    Picture tex_deactivated;
    Picture tex_normal;
    Picture tex_highlighted;
    Picture tex_pressed;
};
