#include "game/ai_circle_control.h"

#include "game/starship.h"
#include "main/exception.h"

#include <cmath>

namespace {

// Less than a radian has, so that the ship turns a little slower than it goes round.
constexpr double degrees_per_radian = 56;

}  // namespace

AICircleControl::AICircleControl(Starship* s, const Point4& c, float sp)
    : _Control(s, CTRL_AI_CIRCLE),
      center(c),
      speed(sp),
      aspeed(sp / Vector4(c, s->getPosition()).getLength()),
      axis(s->getOrientation() ^ Vector4(c, s->getPosition())),
      radius(c, s->getPosition()) {
    if (!std::isfinite(aspeed))
        throw Exception("AICircleControl: attribute center: the ship is at its own centre");
    ship->setVelocity(speed);
}

// The throttle stays closed: the engine takes some of the speed away again, in every frame alike.
void AICircleControl::updateAI(int timediff) {
    const double turn = aspeed * degrees_per_radian * timediff / 1000;
    new_orientation.rotate(axis, static_cast<float>(std::remainder(turn, 360))).normalize();
    ship->setVelocity(speed);
}
