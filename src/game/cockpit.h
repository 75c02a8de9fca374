#pragma once

#include "3d/bitmap.h"
#include "game/drawable.h"
#include "game/shield_viewer.h"
#include "game/target_viewer.h"

#include <list>
#include <memory>
#include <vector>

class _2D_Rep;
class _CockpitControl;
class Mfd;
class Starship;
class XMLElement;

/// How much of the cockpit is shown. The two modes are each other's opposites: a switch is a change
/// of sign.
enum COCKPITenum {
    CP_NORMAL = -1,
    CP_SWITCH = 0,
    CP_FULLSCREEN = 1,
};

/// The flat layer of instruments over the view from a ship: a crosshair and the controls that the
/// game file lays out, each confined to its mask. The hull owns it. That of a catalogue part is a
/// pattern that serves no ship and has empty displays; each ship's hull has a copy with pages.
class Cockpit : public _Drawable {
public:
    ~Cockpit() override;
    Cockpit& operator=(const Cockpit&) = delete;

    /// Draws the overlay over the finished scene. Leaves lighting and texturing off.
    void draw(DRWenum mode) const override;
    /// Marks the shapes of all controls in the stencil buffer, which it clears. Expects an overlay
    /// in pixels of the window.
    void prepareMask() const;

    /// Only CP_FULLSCREEN shows the overlay; CP_SWITCH changes to the other mode.
    void setMode(COCKPITenum m);

    void setParentShip(Starship* s) { ship = s; }
    /// The ship whose instruments these are, null for a pattern.
    Starship* getParentShip() const { return ship; }

    /// Renders the page that is shown, if the player looks from this ship. Runs outside the frame
    /// bracket, in the back buffer.
    void update();

    /// Gives all displays a page, which stays the caller's, or takes it away.
    void addClient(_2D_Rep* client);
    void removeClient(_2D_Rep* client);
    /// The display number `which`, counted from 0 in the order of the game file, or null.
    Mfd* getMFD(int which) const;

    /// Mini displays are not built yet: these do nothing.
    void switchDisplay(unsigned int which, bool on);
    void addMiniClient(_2D_Rep* client);
    void removeMiniClient(_2D_Rep* client);

private:
    friend class Hull;

    /// Reads a "Cockpit" element. Throws Exception on an unknown control, a faulty one, or a mask
    /// that cannot be loaded.
    explicit Cockpit(const XMLElement& node);
    /// A cockpit of the same looks, without a ship yet, whose displays show its own pages.
    Cockpit(const Cockpit& other);

    void drawOverlay() const;
    void take(std::unique_ptr<_CockpitControl> control);

    Starship* ship = nullptr;
    Bitmap crosshair;
    TargetViewer target_viewer;
    ShieldViewer shield_viewer;
    COCKPITenum mode = CP_FULLSCREEN;
    std::list<std::unique_ptr<_CockpitControl>> controls;  ///< in the order of drawing
    std::vector<Mfd*> displays;                            ///< those among the controls
};
