#pragma once

#include <ostream>

/// An opaque colour of three components. Everything drawn takes its colour from one of these or
/// from the form with alpha. Constructors and setters clamp to [0, 1]; arithmetic does not, so that
/// a blend of two colours may pass through values outside on its way.
class ColorRGB {
public:
    /// Middle grey.
    ColorRGB() = default;
    ColorRGB(float r, float g, float b);
    /// Reads three floats. Throws Exception on a null pointer.
    explicit ColorRGB(const float* c);
    virtual ~ColorRGB() = default;

    float getRed() const { return r; }
    float getGreen() const { return g; }
    float getBlue() const { return b; }
    /// Writes three floats. Throws Exception on a null pointer.
    void getRGB(float* rgb) const;
    /// Writes four floats; without an alpha of its own the fourth is 1. Throws Exception on a null
    /// pointer.
    virtual void getRGBA(float* rgba) const;

    void setRed(float red) { r = clamp(red); }
    void setGreen(float green) { g = clamp(green); }
    void setBlue(float blue) { b = clamp(blue); }

    ColorRGB& operator+=(const ColorRGB& c);
    ColorRGB& operator-=(const ColorRGB& c);
    ColorRGB& operator*=(float f);
    ColorRGB& operator/=(float f);

    virtual bool hasAlpha() const { return false; }
    /// Makes this the current OpenGL colour.
    virtual void activate() const;

protected:
    /// What is not a number becomes 0.
    static float clamp(float component);

    float r = 0.5f;
    float g = 0.5f;
    float b = 0.5f;
};

ColorRGB operator+(ColorRGB left, const ColorRGB& right);
ColorRGB operator-(ColorRGB left, const ColorRGB& right);
ColorRGB operator*(ColorRGB c, float f);
ColorRGB operator/(ColorRGB c, float f);

/// Writes "(r, g, b)", or "(r, g, b, a)" for a colour with alpha.
std::ostream& operator<<(std::ostream& out, const ColorRGB& c);
