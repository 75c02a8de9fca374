#pragma once

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "game/drawable.h"

#include <memory>
#include <string>

class _Font;
class Texture;
class XMLElement;

enum MCTYPEenum {
    MC_BUTTON = 0,
    MC_CHECKBOX = 1,
    MC_SCROLLBAR = 2,
};

enum MCSTATEenum {
    MC_IDLE = 0,
    MC_HIGHLIGHTED = 1,  ///< has the focus
    MC_PRESSED = 2,
    MC_PRESSED_RIGHT = 3,
    MC_PRESSED_LEFT = 4,
    MC_DEACTIVATED = 5,
};

/// What an event has come to. The last two end the menu.
enum MCRESULTenum {
    MC_NOT_HANDELED = 1,
    MC_HANDELED = 17,
    MC_MENU_EXIT = 18,
    MC_APP_EXIT = 19,
};

enum MCACTIONenum {
    MC_ACTION = 0,
    MC_ACTION_LEFT = 1,
    MC_ACTION_RIGHT = 2,
};

/// The base of all that can be worked in a menu: a labelled box that the mouse presses and that the
/// keys reach through the focus. Owned by its menu. Points and sizes are pixels, with the origin in
/// the middle of the window and y up.
class _MenuControl : public _Drawable {
public:
    _MenuControl& operator=(const _MenuControl&) = delete;

    /// The control with the texture of its state, and its label over it. Throws Exception in a
    /// state that the control has no picture for.
    void draw(DRWenum mode) const override;
    virtual void drawControl(DRWenum mode) const = 0;

    virtual void setLabel(const std::string& text) { label = text; }
    /// Moves the lower left corner, and the label with it.
    virtual void setPosition(const Point4& p);
    virtual void setLabelPosition(const Point4& p) { label_position = p; }

    /// `time_diff` is milliseconds.
    virtual void update(unsigned int /*time_diff*/) {}

    /// A press within the control. A control that is pressed already takes no second one.
    virtual MCRESULTenum handleMouseDown(const Point4& p);
    virtual MCRESULTenum handleMouseMove(const Point4& p);
    /// Acts where a press came before, wherever the pointer is by now.
    virtual MCRESULTenum handleMouseUp(const Point4& p);
    /// Does what the control is there for; MC_NOT_HANDELED for an action that it does not know.
    virtual MCRESULTenum handleAction(MCACTIONenum action) = 0;

    MCTYPEenum getType() const { return type; }
    ColorRGBA getColor() const { return color; }
    const _Font* getFont() const { return font; }
    Point4 getPosition() const { return position; }
    Point4 getLabelPosition() const { return label_position; }
    const std::string& getLabel() const { return label; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
    MCSTATEenum getState() const { return state; }
    unsigned int getId() const { return id; }

    /// Only an idle control can be deactivated, so not the one with the focus.
    void activate();
    void deactivate();
    /// Without effect on a control that is pressed or deactivated.
    void setHighlighted(bool hl);
    /// The number by which the listener knows the control.
    void setId(unsigned int i) { id = i; }

protected:
    /// Reads what the elements of all controls have in common. Throws Exception on an element that
    /// is no control, and on a width or height below 0; FontFactoryException on an unknown font.
    explicit _MenuControl(const XMLElement& node);
    _MenuControl(const _MenuControl&) = default;

    bool isInside(const Point4& p) const;
    /// Fills the control's box with a picture.
    void drawPicture(const Texture& picture) const;
    /// The picture in the file that an attribute names. Throws Exception if it cannot be loaded.
    static std::shared_ptr<const Texture> loadPicture(const XMLElement& node,
                                                      const std::string& attribute);

    MCSTATEenum state = MC_IDLE;

private:
    MCTYPEenum type;
    ColorRGBA color;
    float width;
    float height;
    const _Font* font;
    Point4 position;
    Point4 label_position;
    std::string label;
    unsigned int id = 0;
};
