#pragma once

#include "3d/color_rgba.h"
#include "3d/point.h"

#include <memory>

class Bitmap;
class Cockpit;
class XMLElement;

/// The kind of a control, and its mark in the stencil buffer.
enum CPCTRLenum {
    CPCTRL_RADAR_INTERFACE_FRONT = 17,
    CPCTRL_RADAR_INTERFACE_BACK = 18,
    CPCTRL_MFD = 19,
    CPCTRL_BATTERY_INTERFACE = 20,
    CPCTRL_SPEEDOMETER = 21,
    CPCTRL_TANK_INTERFACE = 22,
};

/// The point of a control's mask that lies on its anchor. The high four bits are the horizontal
/// side, the low four the vertical one.
enum ALIGNMENTenum {
    LEFT_TOP = 17,
    LEFT_CENTER = 18,
    LEFT_BOTTOM = 20,
    CENTER_TOP = 33,
    CENTER_CENTER = 34,
    CENTER_BOTTOM = 36,
    RIGHT_TOP = 65,
    RIGHT_CENTER = 66,
    RIGHT_BOTTOM = 68,
};

/// One instrument of a cockpit: a place on the screen and a mask that gives it its shape. Its
/// cockpit owns it. First all controls mark their shapes in the stencil buffer, then each fills its
/// own and draws into it; where two overlap, the later one of the cockpit's list is seen. Controls
/// of one kind have one mark, and act as one shape.
class _CockpitControl {
public:
    virtual ~_CockpitControl() = default;
    _CockpitControl& operator=(const _CockpitControl&) = delete;

    /// A control of the same class and looks for another cockpit, which must set itself.
    virtual std::unique_ptr<_CockpitControl> clone() const = 0;

    /// Marks the shape in the stencil buffer. Both expect an overlay in pixels of the window, and
    /// throw Exception where getPosition() does.
    void drawStencil() const;
    /// Fills the marked shape and draws the instrument into it.
    void draw() const;

    CPCTRLenum getType() const { return type; }
    /// The anchor, in fractions of the window's size.
    const Point4& getRelPosition() const { return rel_pos; }
    ALIGNMENTenum getAlignment() const { return alignment; }
    /// The size of the mask in pixels.
    int getWidth() const;
    int getHeight() const;
    /// The lower left corner of the mask in the window, in pixels. Throws Exception when the game
    /// file gave no alignment that there is.
    Point4 getPosition() const;

    void setCockpit(Cockpit* owner) { cockpit = owner; }

protected:
    /// Reads what all controls have in common. Throws Exception on an element that is no control.
    _CockpitControl(const XMLElement& node, Cockpit* owner);
    _CockpitControl(const _CockpitControl&) = default;

    /// Draws the instrument into the rectangle of its mask, which is its stencil: blending is on,
    /// depth test, lighting and texturing are off.
    virtual void drawControl(float x, float y, float w, float h) const = 0;

private:
    CPCTRLenum type;
    Point4 rel_pos;
    ALIGNMENTenum alignment;
    const Bitmap* mask;  ///< shared by all who name its file

protected:
    ColorRGBA background;
    ColorRGBA foreground;
    Cockpit* cockpit;  ///< the owner
};
