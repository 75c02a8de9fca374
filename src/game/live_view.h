#pragma once

#include "3d/color_rgba.h"
#include "game/2d_rep.h"

#include <functional>
#include <memory>

class Cockpit;
class SimpleGameCamera;
class Texture;

/// A display page with a live picture on it: one object, seen by a camera of its own. The picture
/// is taken in a corner of the back buffer before the frame begins, which clears the buffer, and is
/// kept as a texture until the next one. Each cockpit owns its pages and updates the visible one.
class _LiveView : public _2D_Rep {
public:
    _LiveView& operator=(const _LiveView&) = delete;

    /// The cockpit whose ship the page serves; not owned.
    virtual void setCockpit(Cockpit* c) { cockpit = c; }
    /// How the next picture is drawn; every display of the page sets it as well.
    void setDrawMode(DRWenum mode) { draw_mode = mode; }

protected:
    explicit _LiveView(DRWenum mode) : draw_mode(mode) {}
    _LiveView(const _LiveView&) = default;

    /// Keeps what a display asks for: the next picture follows it.
    void follow(float w, float h, const ColorRGBA& f, const ColorRGBA& b, DRWenum mode) const;
    /// Whether the renderer is fast enough for live pictures and the page has a size by now.
    bool canTakePicture() const;
    /// Draws `scene` on the background colour as `camera` sees it, and copies the pixels into
    /// `picture`, a square of `edge` pixels or of what half, quarter ... the window has room for.
    /// The camera, viewport and clear colour of the real frame are back afterwards.
    void takePicture(std::unique_ptr<Texture>& picture, int edge, SimpleGameCamera& camera,
                     const std::function<void()>& scene) const;
    /// Fills a rectangle with a picture, in the colour of the moment.
    static void showPicture(const Texture& picture, float x, float y, float w, float h);

    Cockpit* cockpit = nullptr;
    mutable DRWenum draw_mode;
    mutable float height = 0;  // of the display, as last seen
    mutable float width = 0;
    mutable ColorRGBA bg;
    mutable ColorRGBA fg;
};
