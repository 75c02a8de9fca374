#pragma once

#include "game/live_view.h"

class _GameObject;

/// The display page that shows the ship's target from the ship's own side. It is empty without a
/// target, and while the target is out of the reach of torpedoes.
class TargetViewer : public _LiveView {
public:
    TargetViewer();
    /// A copy serves the same cockpit and starts without a picture.
    TargetViewer(const TargetViewer& other);
    ~TargetViewer() override;

    /// Takes a new picture of the target, or drops the last one when there is no target in reach.
    /// Belongs between two frames.
    void update();
    void drawMonitor(float x, float y, float w, float hi, const ColorRGBA& f, const ColorRGBA& b,
                     const ColorRGBA& h, DRWenum dm) const override;

private:
    _GameObject* findTarget() const;

    std::unique_ptr<Texture> target_tex;  // null without a target
    _GameObject* target_obj = nullptr;    // seen at the last update, may have died since
};
