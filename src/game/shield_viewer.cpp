#include "game/shield_viewer.h"

#include "3d/bitmap_factory.h"
#include "3d/material.h"
#include "3d/opengl.h"
#include "3d/texture.h"
#include "game/cockpit.h"
#include "game/shield.h"
#include "game/simple_game_camera.h"
#include "game/starship.h"
#include "main/log_factory.h"

#include <iostream>

namespace {

constexpr int picture_edge = 256;     // pixels, also the size of the mask
constexpr float camera_distance = 3;  // radii of the ship, above its middle
constexpr float picture_alpha = 0.5f;

ColorRGB chargeColor(const Shield& shield) {
    const ColorRGB empty(1, 0, 0), full(0, 1, 0);
    const auto capacity = static_cast<float>(shield.getMaxEnergy());
    const float charge = capacity > 0 ? shield.getCurrentEnergy() / capacity : 0;
    return empty + (full - empty) * charge;
}

}  // namespace

ShieldViewer::ShieldViewer()
    : _LiveView(DRAW_FLAT),
      bitmap(BitmapFactory::getInstance()->getBitmap("../data/masks/shield_mask.bw")) {}

ShieldViewer::ShieldViewer(const ShieldViewer& other) : _LiveView(other), bitmap(other.bitmap) {}

ShieldViewer::~ShieldViewer() = default;

void ShieldViewer::setCockpit(Cockpit* c) {
    if (!c) logLine(std::cerr, "ERROR (GAME): ", "ShieldVieer::setCockpit: null pointer");
    _LiveView::setCockpit(c);
}

void ShieldViewer::update() {
    if (!canTakePicture()) return;

    const Starship& ship = *cockpit->getParentShip();
    const Point4 middle = ship.getPosition();
    const Vector4 above = ship.getUp().normalize() * (camera_distance * ship.getSize());
    SimpleGameCamera camera(middle + above, ship.getOrientation(), middle);
    takePicture(shield_tex, picture_edge, camera, [this, &ship] {
        if (const Shield* shield = ship.getShield()) drawMask(*shield);
        glEnable(GL_LIGHTING);
        ship.draw(draw_mode);
    });
}

// The mask leaves no depth behind: the ship stands on top of it, however far away.
void ShieldViewer::drawMask(const Shield& shield) const {
    const OpenGLContext* gl = OpenGLContext::getInstance();
    const ColorRGB color = chargeColor(shield);
    bitmap->setColor(ColorRGBA(color.getRed(), color.getGreen(), color.getBlue(), 1));

    glDisable(GL_TEXTURE_2D);  // the last frame may have left a picture behind
    glDisable(GL_DEPTH_TEST);
    gl->switchTo2D(0, picture_edge, 0, picture_edge);
    bitmap->draw(0, 0, 0, true);
    gl->switchTo3D();
    glEnable(GL_DEPTH_TEST);
}

void ShieldViewer::drawMonitor(float x, float y, float w, float h, const ColorRGBA& f,
                               const ColorRGBA& b, const ColorRGBA&, DRWenum mode) const {
    follow(w, h, f, b, mode);
    if (!shield_tex) return;
    Material(new ColorRGBA(1, 1, 1, picture_alpha)).activate(false);
    showPicture(*shield_tex, x, y, w, h);
}
