#pragma once

#include "main/menu_control.h"

class _CheckboxListener;

/// A menu's box to tick. It changes as soon as it is pressed, and on Return.
class Checkbox : public _MenuControl {
public:
    /// Reads a "MenuCheckbox" element. Throws Exception on any other, and on a picture that cannot
    /// be loaded.
    explicit Checkbox(const XMLElement& node);
    /// The copy shares the pictures, is ticked like the other, and has no listener.
    Checkbox(const Checkbox& other);

    void drawControl(DRWenum mode) const override;
    MCRESULTenum handleMouseDown(const Point4& p) override;
    MCRESULTenum handleMouseUp(const Point4& p) override;
    /// Ticks or clears the box and tells the listener.
    MCRESULTenum handleAction(MCACTIONenum action) override;

    /// Not owned; null for none.
    void setCheckboxListener(_CheckboxListener* l) { checkbox_listener = l; }
    /// Tells nobody.
    void setChecked(bool c) { checked = c; }
    bool getChecked() const { return checked; }

private:
    using Picture = std::shared_ptr<const Texture>;

    bool checked = false;
    bool clicked = false;  ///< has been pressed at some time
    _CheckboxListener* checkbox_listener = nullptr;
    Picture tex_deactivated;
    Picture tex_normal;
    Picture tex_highlighted;
    Picture tex_checked_deactivated;
    Picture tex_checked_normal;
    Picture tex_checked_highlighted;
};
