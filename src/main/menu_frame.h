#pragma once

#include "main/menu_control.h"

#include <SDL.h>

#include <list>
#include <memory>

class BackgroundModel;
class Camera;

/// A menu: controls on a half transparent panel in front of a model, under the game's title. Modal:
/// the world stands still while it runs. The driver owns it, and it owns all that it shows.
class MenuFrame {
public:
    MenuFrame();
    ~MenuFrame();
    MenuFrame(const MenuFrame&) = delete;
    MenuFrame& operator=(const MenuFrame&) = delete;

    /// Takes ownership. The order is that of the focus and of the search under the pointer.
    void addControl(_MenuControl* mc);
    void clearControls();
    /// Takes ownership and releases the model before; null for none.
    void setBackground(BackgroundModel* b);

    /// The size of the panel in pixels.
    void setWidth(float w) { width = w; }
    void setHeight(float h) { height = h; }

    /// Marks the menu as left; a loop under way goes on until a control or a key ends it.
    void quit() { running = false; }
    bool isRunning() const { return running; }

    /// Shows the menu until a control or a key ends it, and returns how: MC_MENU_EXIT to go on with
    /// the game, MC_APP_EXIT to leave the program. Can be called again; the controls keep their
    /// states, and the focus starts at the first one. Throws Exception when there is none.
    MCRESULTenum run();

private:
    using Controls = std::list<std::unique_ptr<_MenuControl>>;
    using MouseHandler = MCRESULTenum (_MenuControl::*)(const Point4& p);

    void drawFrame(const Camera& camera, const ColorRGBA& panel_color) const;
    void drawPanel(const ColorRGBA& color) const;
    void drawTitle(const Camera& camera) const;
    void drawControls() const;

    MCRESULTenum dispatch(const SDL_Event& event);
    /// Offers the event to one control after the other. The first that takes it gets the focus.
    MCRESULTenum dispatchMouse(const SDL_MouseButtonEvent& button, const char* name,
                               MouseHandler handler);
    MCRESULTenum dispatchKey(SDLKey key);
    /// To the next control, or the previous one for `step` below 0; past the last comes the first.
    void moveFocus(int step);
    /// Moves the lamp over the model, for the keys that do so.
    void moveLight(SDLKey key);

    bool running = true;
    float width = 100;
    float height = 100;
    std::unique_ptr<BackgroundModel> background;
    Controls controls;
    Controls::iterator focus;
};
