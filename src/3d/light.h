#pragma once

#include "3d/color_rgb.h"
#include "3d/point.h"

#include <GL/gl.h>

#include <memory>
#include <ostream>

/// A light, bound for life to one of OpenGL's light slots. Made and owned by the light factory;
/// whoever asked for it activates it once per frame, after the camera. All that is set goes to
/// OpenGL at once, only the switch waits for the next activation.
class _Light {
public:
    /// Takes ownership of the colours. Without one, ambient is (0, 0, 0, 0), diffuse the default
    /// colour, and specular a copy of the diffuse colour if that was given, else the default too.
    explicit _Light(GLenum l, const Point4& p = Point4(), ColorRGB* d = nullptr,
                    ColorRGB* a = nullptr, ColorRGB* s = nullptr);
    /// Switches the slot off.
    virtual ~_Light();
    _Light(const _Light&) = delete;
    _Light& operator=(const _Light&) = delete;

    virtual bool isSpotLight() const = 0;
    /// Switches the slot on and places it under the modelview matrix of the moment, or switches it
    /// off when light or lighting is not wanted. With `show` true a light that is on also draws
    /// itself.
    virtual void activate(bool show) = 0;
    /// Shows where the light is: a small glowing ball.
    virtual void drawDummy() = 0;

    Point4 getPosition() const { return position; }
    const ColorRGB* getAmbient() const { return ambient.get(); }
    const ColorRGB* getDiffuse() const { return diffuse.get(); }
    const ColorRGB* getSpecular() const { return specular.get(); }
    float getConstAtt() const { return const_att; }
    float getLinAtt() const { return lin_att; }
    float getQuadrAtt() const { return quadr_att; }
    /// The slot: GL_LIGHT0 and upwards.
    GLenum getLightNumber() const { return light; }

    /// World coordinates.
    void setPosition(const Point4& p);
    /// Each takes ownership; the colour it replaces is freed. A colour that the light already holds
    /// may be set in a second place. Throw Exception on null.
    void setAmbient(ColorRGB* a);
    void setDiffuse(ColorRGB* d);
    void setSpecular(ColorRGB* s);
    /// Light at distance r is divided by c + l * r + q * r * r.
    void setAttenuation(float c, float l, float q);
    void setConstAtt(float c);
    void setLinAtt(float l);
    void setQuadrAtt(float q);

    /// Whether the light is wanted.
    bool isOn() const { return on; }
    /// Whether OpenGL has the slot switched on.
    bool isActivated() const;
    void switchOn() { on = true; }
    void switchOff() { on = false; }
    /// Switches the slot off until the next activation.
    void deactivate() const;

protected:
    /// Whether this light is to shine in the present frame.
    bool isWanted() const;
    /// Switches the slot on and sends the position.
    void place() const;
    void sendPosition() const;
    /// Draws the ball at the light's position, in the light's own colour.
    void drawBall() const;
    /// Makes everything drawn between the two glow in the light's own colour.
    void startGlow() const;
    void endGlow() const;

private:
    /// The colour itself, in shared hands if another field of this light holds it already.
    std::shared_ptr<ColorRGB> hold(ColorRGB* color) const;
    void replace(std::shared_ptr<ColorRGB>& field, ColorRGB* color, GLenum component,
                 const char* origin);
    void send(GLenum component, const ColorRGB& color) const;

    Point4 position;
    std::shared_ptr<ColorRGB> ambient;
    std::shared_ptr<ColorRGB> diffuse;
    std::shared_ptr<ColorRGB> specular;
    float const_att = 1;
    float lin_att = 0;
    float quadr_att = 0;
    bool on = true;
    GLenum light;
};

/// Kind, switch, position, colours and attenuation, each on a line.
std::ostream& operator<<(std::ostream& out, const _Light& light);
