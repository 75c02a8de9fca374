#include "3d/color_rgb.h"

#include "main/exception.h"

#include <GL/gl.h>

ColorRGB::ColorRGB(float r, float g, float b) : r(clamp(r)), g(clamp(g)), b(clamp(b)) {}

ColorRGB::ColorRGB(const float* c) {
    if (!c) throw Exception("ColorRGB::ColorRGB: null pointer");
    setRed(c[0]);
    setGreen(c[1]);
    setBlue(c[2]);
}

float ColorRGB::clamp(float component) {
    if (component >= 1) return 1;
    return component > 0 ? component : 0;
}

void ColorRGB::getRGB(float* rgb) const {
    if (!rgb) throw Exception("ColorRGB::getRGB: null pointer");
    rgb[0] = r;
    rgb[1] = g;
    rgb[2] = b;
}

void ColorRGB::getRGBA(float* rgba) const {
    getRGB(rgba);
    rgba[3] = 1;
}

ColorRGB& ColorRGB::operator+=(const ColorRGB& c) {
    r += c.r;
    g += c.g;
    b += c.b;
    return *this;
}

ColorRGB& ColorRGB::operator-=(const ColorRGB& c) {
    r -= c.r;
    g -= c.g;
    b -= c.b;
    return *this;
}

ColorRGB& ColorRGB::operator*=(float f) {
    r *= f;
    g *= f;
    b *= f;
    return *this;
}

ColorRGB& ColorRGB::operator/=(float f) {
    r /= f;
    g /= f;
    b /= f;
    return *this;
}

void ColorRGB::activate() const {
    glColor3f(r, g, b);
}

ColorRGB operator+(ColorRGB left, const ColorRGB& right) {
    return left += right;
}
ColorRGB operator-(ColorRGB left, const ColorRGB& right) {
    return left -= right;
}
ColorRGB operator*(ColorRGB c, float f) {
    return c *= f;
}
ColorRGB operator/(ColorRGB c, float f) {
    return c /= f;
}

std::ostream& operator<<(std::ostream& out, const ColorRGB& c) {
    float rgba[4];
    c.getRGBA(rgba);
    out << "(" << rgba[0] << ", " << rgba[1] << ", " << rgba[2];
    if (c.hasAlpha()) out << ", " << rgba[3];
    return out << ")";
}
