#include "game/target_viewer.h"

#include "3d/texture.h"
#include "game/cockpit.h"
#include "game/simple_game_camera.h"
#include "game/starship.h"

namespace {

constexpr int picture_edge = 512;     // pixels
constexpr float camera_distance = 2;  // radii of the target, from its middle
constexpr float smallest_angle_sine = 1e-3f;

/// From the target to the ship, with length 1; for a target at the ship's own place any direction.
Vector4 towardsShip(const Starship& ship, const _GameObject& target) {
    Vector4 way(target.getPosition(), ship.getPosition());
    return way.getLength() > 0 ? way.normalize() : ship.getOrientation().normalize();
}

/// The ship's own up, unless the view runs along it.
Vector4 upFor(const Starship& ship, const Vector4& view) {
    const Vector4 up = ship.getUp().normalize();
    return (up ^ view).getLength() > smallest_angle_sine ? up : ship.getOrientation();
}

}  // namespace

TargetViewer::TargetViewer() : _LiveView(DRAW_MULTITEX) {}

TargetViewer::TargetViewer(const TargetViewer& other) : _LiveView(other) {}

TargetViewer::~TargetViewer() = default;

_GameObject* TargetViewer::findTarget() const {
    const Starship& ship = *cockpit->getParentShip();
    const ObjectSlot selected = ship.getSelectedObject();
    if (!selected || !*selected) return nullptr;

    const float distance = Vector4(ship.getPosition(), (*selected)->getPosition()).getLength();
    return distance > ship.getTorpedoRange() ? nullptr : *selected;
}

void TargetViewer::update() {
    target_obj = findTarget();
    if (!target_obj) target_tex.reset();
    if (!target_obj || !canTakePicture()) return;

    const Starship& ship = *cockpit->getParentShip();
    const Vector4 away = towardsShip(ship, *target_obj);
    const Point4 middle = target_obj->getPosition();
    SimpleGameCamera camera(middle + away * (camera_distance * target_obj->getSize()),
                            upFor(ship, away), middle);
    takePicture(target_tex, picture_edge, camera, [this] { target_obj->draw(draw_mode); });
}

void TargetViewer::drawMonitor(float x, float y, float w, float hi, const ColorRGBA& f,
                               const ColorRGBA& b, const ColorRGBA&, DRWenum dm) const {
    follow(w, hi, f, b, dm);
    if (!target_tex) return;
    ColorRGBA(1, 1, 1, bg.getAlpha()).activate();
    showPicture(*target_tex, x, y, w, hi);
}
