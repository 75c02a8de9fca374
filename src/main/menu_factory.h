#pragma once

#include "3d/color_rgba.h"
#include "main/button.h"

#include <memory>

class XMLElement;

/// What the game file says about the look of menus: the colour of their panel and the button that
/// all buttons are copies of. Created once, after the fonts, and kept until the process ends.
class MenuFactory {
public:
    /// Reads a "MenuConfig" element. Throws Exception on any other, on one that holds no button or
    /// two, and on a second call.
    static void createInstance(const XMLElement& node);
    /// Throws Exception before createInstance().
    static MenuFactory* getInstance();

    MenuFactory(const MenuFactory&) = delete;
    MenuFactory& operator=(const MenuFactory&) = delete;

    /// Its alpha decides how much of what is behind the menu shines through.
    ColorRGBA getBackground() const { return background; }
    /// A copy without a listener, at the origin.
    Button getButton() const { return *button; }

private:
    explicit MenuFactory(const XMLElement& node);

    static MenuFactory* instance;

    ColorRGBA background;
    std::unique_ptr<Button> button;
};
