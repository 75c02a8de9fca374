#pragma once

#include "3d/point.h"
#include "game/control.h"

/// A pilot who flies a circle for ever, in the plane of the course that the ship starts on and the
/// circle's centre.
class AICircleControl : public _Control {
public:
    /// `sp` is the speed on the circle in world units per second. Throws Exception for a ship that
    /// stands at the centre `c`.
    AICircleControl(Starship* s, const Point4& c, float sp);

protected:
    void updateAI(int timediff) override;

private:
    Point4 center;
    float speed;
    float aspeed;    ///< radians per second
    Vector4 axis;    ///< what the ship turns about
    Vector4 radius;  ///< from the centre to where the ship started
};
