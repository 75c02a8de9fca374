#include "3d/color_rgba.h"

#include "main/exception.h"

#include <GL/gl.h>

namespace {

const float* required(const float* c) {
    if (!c) throw Exception("ColorRGBA::ColorRGBA: null pointer");
    return c;
}

}  // namespace

ColorRGBA::ColorRGBA(float r, float g, float b, float a) : ColorRGB(r, g, b), a(clamp(a)) {}

ColorRGBA::ColorRGBA(const float* c) : ColorRGB(required(c)), a(clamp(c[3])) {}

void ColorRGBA::getRGBA(float* rgba) const {
    getRGB(rgba);
    rgba[3] = a;
}

ColorRGBA& ColorRGBA::operator+=(const ColorRGBA& c) {
    ColorRGB::operator+=(c);
    a += c.a;
    return *this;
}

ColorRGBA& ColorRGBA::operator-=(const ColorRGBA& c) {
    ColorRGB::operator-=(c);
    a -= c.a;
    return *this;
}

ColorRGBA& ColorRGBA::operator*=(float f) {
    ColorRGB::operator*=(f);
    a *= f;
    return *this;
}

ColorRGBA& ColorRGBA::operator/=(float f) {
    ColorRGB::operator/=(f);
    a /= f;
    return *this;
}

void ColorRGBA::activate() const {
    glColor4f(r, g, b, a);
}

ColorRGBA operator+(ColorRGBA left, const ColorRGBA& right) {
    return left += right;
}
ColorRGBA operator-(ColorRGBA left, const ColorRGBA& right) {
    return left -= right;
}
ColorRGBA operator*(ColorRGBA c, float f) {
    return c *= f;
}
ColorRGBA operator/(ColorRGBA c, float f) {
    return c /= f;
}
