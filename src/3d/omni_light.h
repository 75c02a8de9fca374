#pragma once

#include "3d/light.h"

/// A light that shines in all directions, such as the lamp above every scene.
class OmniLight : public _Light {
public:
    explicit OmniLight(GLenum l, const Point4& p = Point4(), ColorRGB* d = nullptr,
                       ColorRGB* a = nullptr, ColorRGB* s = nullptr);

    bool isSpotLight() const override { return false; }
    void activate(bool show) override;
    void drawDummy() override;
};
