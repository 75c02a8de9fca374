#include "game/shield.h"

#include "3d/bounding_sphere.h"
#include "3d/color_rgba.h"
#include "3d/glu_sphere.h"
#include "3d/glut.h"
#include "3d/material.h"
#include "3d/opengl.h"
#include "game/hit_test.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <memory>

namespace {

constexpr float clearance = 1.1f;      // times the ship's radius
constexpr float power_reserve = 1.1f;  // times what makes up for the loss
constexpr int roundness = 10;          // slices and stacks of the glow

}  // namespace

Shield::Shield(const XMLElement& node) : _StarshipPart(PRT_SHIELD), _3D_Rep(SLOT_NONE) {
    checkElement(node, "Shield");
    readNameAndMass(node);
    setSize(readNumber(node, "size"));
    setPower(readNumber(node, "power"));
    setEfficiency(static_cast<unsigned int>(readInt(node, "efficiency", 1)));
    setMaxEnergy(static_cast<unsigned int>(readInt(node, "strength")));
    setLoss(static_cast<unsigned int>(readInt(node, "loss")));
    const unsigned int half = max_energy / 2;
    current_energy = static_cast<float>(half);
    bias_power = static_cast<float>(loss) * 1000 / static_cast<float>(efficiency);
    used_power = power_reserve * bias_power;
}

void Shield::setUsedPower(float f) {
    used_power = static_cast<float>(getPower()) * f / 1000;
}

void Shield::setParentShip(Starship* s) {
    _StarshipPart::setParentShip(s);
    const float radius = clearance * s->getBoundingObject().getRadius();
    set3DObject(
        std::make_shared<GluSphere>(radius, new Material(new ColorRGBA(0.8f, 0.2f, 0.1f, 0.5f))));
    transformBoundingObject(Point4(), Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1));
}

bool Shield::testHit(const _BoundingObject& o, float& e) {
    BoundingSphere sphere(*getBoundingObject());
    sphere.setCenter(parent_ship->getPosition());
    if (!isHit(sphere, o)) return false;

    const float taken = std::min(e, current_energy);
    e -= taken;
    current_energy -= taken;
    return true;
}

void Shield::update(int timediff) {
    const auto milliseconds = static_cast<float>(timediff);
    const auto full = static_cast<float>(max_energy);
    const auto gain_rate =
        static_cast<float>(efficiency);  // shield energy for 1000 units of charge

    const float leaked = static_cast<float>(loss) * milliseconds / 1000;
    const float power_of_frame = milliseconds * used_power / 1000;
    const float power_to_fill = 1000 * (full - current_energy + leaked) / gain_rate;
    const float drawn =
        parent_ship->getReactor()->drawPower(std::min(power_of_frame, power_to_fill));
    const float gain = drawn * gain_rate / 1000;
    // Rounding must not overfill the shield: the next frame would give charge back.
    current_energy = std::clamp(current_energy + gain - leaked, 0.0f, full);
}

void Shield::draw(DRWenum) const {
    const unsigned int least_visible = max_energy / 10;
    if (current_energy <= static_cast<float>(least_visible)) return;

    const float alpha = 0.7f * current_energy / static_cast<float>(max_energy);
    const OpenGLContext* gl = OpenGLContext::getInstance();
    initGlut();
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    gl->activateBlending();
    glDepthMask(GL_FALSE);
    ColorRGBA(0.7f, 0.3f, 0.2f, alpha).activate();
    glutSolidSphere(parent_ship->getBoundingSphere().getRadius(), roundness, roundness);
    glDepthMask(GL_TRUE);
    gl->deactivateBlending();
}
