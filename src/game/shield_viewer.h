#pragma once

#include "game/live_view.h"

class Bitmap;
class Shield;

/// The display page that shows the own ship from above, nose up, on a mask that goes from red to
/// green with the charge of the shield. A ship without a shield shows without the mask.
class ShieldViewer : public _LiveView {
public:
    /// Loads the mask. Throws Exception when it is missing.
    ShieldViewer();
    /// A copy serves the same cockpit and starts without a picture.
    ShieldViewer(const ShieldViewer& other);
    ~ShieldViewer() override;

    /// Reports a null, and takes it.
    void setCockpit(Cockpit* c) override;

    /// Takes a new picture of the ship. Belongs between two frames.
    void update();
    void drawMonitor(float x, float y, float w, float h, const ColorRGBA& f, const ColorRGBA& b,
                     const ColorRGBA& hl, DRWenum mode) const override;

private:
    void drawMask(const Shield& shield) const;

    std::unique_ptr<Texture> shield_tex;
    Bitmap* bitmap;  // the mask, the bitmap factory's
};
