#pragma once

#include "3d/color_rgb.h"

/// A colour with alpha, 0 for invisible and 1 for opaque. Clamps like ColorRGB, and like there
/// arithmetic works on all components and does not clamp.
class ColorRGBA : public ColorRGB {
public:
    /// Middle grey, invisible.
    ColorRGBA() = default;
    ColorRGBA(float r, float g, float b, float a);
    /// Reads four floats. Throws Exception on a null pointer.
    explicit ColorRGBA(const float* c);

    float getAlpha() const { return a; }
    void setAlpha(float alpha) { a = clamp(alpha); }
    void getRGBA(float* rgba) const override;

    /// With an opaque colour: alpha stays.
    using ColorRGB::operator+=;
    using ColorRGB::operator-=;
    ColorRGBA& operator+=(const ColorRGBA& c);
    ColorRGBA& operator-=(const ColorRGBA& c);
    ColorRGBA& operator*=(float f);
    ColorRGBA& operator/=(float f);

    bool hasAlpha() const override { return true; }
    void activate() const override;

protected:
    float a = 0;
};

ColorRGBA operator+(ColorRGBA left, const ColorRGBA& right);
ColorRGBA operator-(ColorRGBA left, const ColorRGBA& right);
ColorRGBA operator*(ColorRGBA c, float f);
ColorRGBA operator/(ColorRGBA c, float f);
