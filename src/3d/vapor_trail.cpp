#include "3d/vapor_trail.h"

#include "3d/matrix.h"
#include "game/camera_management.h"
#include "game/game_camera_interface.h"

#include <GL/gl.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// A change of that much over a whole life, per millisecond.
float perMillisecond(float change, int life) {
    return life > 0 ? change / static_cast<float>(life) : 0;
}

int toTime(unsigned int milliseconds) {
    constexpr unsigned int longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(milliseconds, longest));
}

void drawSquare(float edge) {
    const float h = edge / 2;
    glBegin(GL_QUADS);
    glVertex3f(-h, -h, 0);
    glVertex3f(h, -h, 0);
    glVertex3f(h, h, 0);
    glVertex3f(-h, h, 0);
    glEnd();
}

void drawVapor(const vapor_t& effect, const _GameCameraInterface& camera) {
    Vector4 towards_camera(effect.pos, camera.getPosition());
    if (towards_camera.getLength() == 0) return;

    glPushMatrix();
    glMultMatrixf(Matrix4(effect.pos, towards_camera.normalize(), camera.getUp()).getFloatp());
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    glEnable(GL_BLEND);
    effect.color.activate();
    drawSquare(effect.size);
    glDisable(GL_BLEND);
    glPopMatrix();
}

}  // namespace

vapor_t::vapor_t(const ColorRGBA& c, const Point4& p, unsigned int l, unsigned int s_s,
                 unsigned int e_s)
    : color(c),
      size(static_cast<float>(s_s)),
      pos(p),
      life(toTime(l)),
      alpha_factor(perMillisecond(c.getAlpha(), life)),
      x_factor(perMillisecond(static_cast<float>(e_s) - static_cast<float>(s_s), life)),
      y_factor(x_factor) {}

VaporTrail* VaporTrail::instance = nullptr;

VaporTrail* VaporTrail::getInstance() {
    if (!instance) instance = new VaporTrail();
    return instance;
}

VaporTrail::Effects::iterator VaporTrail::registerEffect(const ColorRGBA& c, const Point4& p,
                                                         unsigned int l, unsigned int s_s,
                                                         unsigned int e_s) {
    return effects.emplace(effects.begin(), c, p, l, s_s, e_s);
}

void VaporTrail::update(unsigned int timediff) {
    const int step = toTime(timediff);
    const auto passed = static_cast<float>(step);
    effects.remove_if([](const vapor_t& effect) { return effect.life < 1; });
    for (vapor_t& effect : effects) {
        effect.color.setAlpha(effect.color.getAlpha() - effect.alpha_factor * passed);
        effect.size += effect.y_factor * passed;
        effect.life -= step;
        effect.tmp += std::min(step, std::numeric_limits<int>::max() - effect.tmp);
        if (effect.tmp < effect.time_diff) continue;
        effect.tmp -= effect.time_diff;
        effect.draw = true;
    }
}

void VaporTrail::draw(DRWenum) {
    const _GameCameraInterface* camera = CameraManagement::getInstance()->getCurrentCamera();
    if (!camera) return;
    for (vapor_t& effect : effects)
        if (std::exchange(effect.draw, false)) drawVapor(effect, *camera);
}
