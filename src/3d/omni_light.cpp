#include "3d/omni_light.h"

OmniLight::OmniLight(GLenum l, const Point4& p, ColorRGB* d, ColorRGB* a, ColorRGB* s)
    : _Light(l, p, d, a, s) {
    constexpr float all_around = 180;  // degrees; the slot may have been a spot light's
    glLightf(l, GL_SPOT_CUTOFF, all_around);
}

void OmniLight::activate(bool show) {
    if (!isWanted()) {
        deactivate();
        return;
    }
    place();
    if (show) drawDummy();
}

void OmniLight::drawDummy() {
    startGlow();
    drawBall();
    endGlow();
}
