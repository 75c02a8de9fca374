#include "3d/spot_light.h"

#include "3d/opengl.h"

SpotLight::SpotLight(GLenum l, const Point4& p, const Vector4& dir, ColorRGB* d, ColorRGB* a,
                     ColorRGB* s)
    : _Light(l, p, d, a, s), direction(dir) {
    sendDirection();
    setExponent(exponent);
    setCutoff(cutoff);
}

void SpotLight::activate(bool show) {
    if (!isWanted()) {
        deactivate();
        return;
    }
    OpenGLContext::getInstance()->getLightFactory()->activateLighting();
    place();
    sendDirection();
    if (show) drawDummy();
}

void SpotLight::drawDummy() {
    startGlow();
    glBegin(GL_LINES);
    getPosition().draw();
    (getPosition() + direction).draw();
    glEnd();
    drawBall();
    endGlow();
}

void SpotLight::setDirection(const Vector4& dir) {
    direction = dir;
    sendDirection();
}

void SpotLight::setExponent(float e) {
    exponent = e;
    glLightf(getLightNumber(), GL_SPOT_EXPONENT, e);
}

void SpotLight::setCutoff(float c) {
    cutoff = c;
    glLightf(getLightNumber(), GL_SPOT_CUTOFF, c);
}

void SpotLight::sendDirection() const {
    GLfloat coordinates[4];
    direction.getFloat4p(coordinates);
    glLightfv(getLightNumber(), GL_SPOT_DIRECTION, coordinates);
}
