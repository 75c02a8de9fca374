#pragma once

#include "3d/light.h"
#include "3d/vector.h"

/// A light that shines in a cone, such as the one above the ship in the menu.
class SpotLight : public _Light {
public:
    explicit SpotLight(GLenum l, const Point4& p = Point4(),
                       const Vector4& dir = Vector4(0, 0, -1, 1), ColorRGB* d = nullptr,
                       ColorRGB* a = nullptr, ColorRGB* s = nullptr);

    bool isSpotLight() const override { return true; }
    /// Switches OpenGL's lighting on as well.
    void activate(bool show) override;
    /// A line along the direction, and the ball.
    void drawDummy() override;

    Vector4 getDirection() const { return direction; }
    float getExponent() const { return exponent; }
    float getCutoff() const { return cutoff; }

    /// World coordinates.
    void setDirection(const Vector4& dir);
    /// How much the light is gathered around the axis, 0 (not at all) to 128.
    void setExponent(float e);
    /// Degrees between the axis and the edge of the cone, 0 to 90.
    void setCutoff(float c);

private:
    void sendDirection() const;

    Vector4 direction;
    float exponent = 0;
    float cutoff = 30;
};
