#pragma once

#include "3d/color_rgb.h"
#include "3d/light.h"
#include "3d/point.h"
#include "3d/vector.h"

#include <GL/gl.h>

#include <memory>
#include <ostream>
#include <vector>

/// OpenGL's fixed light slots and the light model that they share. Lives inside the OpenGL context
/// and owns every light that it hands out.
class LightFactory {
public:
    /// A black global ambient colour.
    LightFactory();
    /// Takes ownership of the global ambient colour; throws Exception on null.
    explicit LightFactory(ColorRGB* a);
    ~LightFactory();
    LightFactory(const LightFactory&) = delete;
    LightFactory& operator=(const LightFactory&) = delete;

    /// A new light in the lowest free slot; it stays the factory's. Takes ownership of the colours,
    /// which are distinct objects, also when it throws Exception because every slot is taken. A
    /// colour that is left out gets the default of _Light.
    _Light* getOmniLight(const Point4& pos, ColorRGB* diff = nullptr, ColorRGB* amb = nullptr,
                         ColorRGB* spec = nullptr);
    _Light* getSpotLight(const Point4& pos, const Vector4& dir, ColorRGB* diff = nullptr,
                         ColorRGB* amb = nullptr, ColorRGB* spec = nullptr);
    /// Destroys the light and frees its slot. A light of another factory is left alone.
    void deleteLight(_Light& l);

    /// The light model; applyModel() brings what is set here into force.
    /// Takes ownership of the colour; throws Exception on null.
    void setGlobalAmbient(ColorRGB* a);
    /// Highlights follow the eye's true direction to each vertex.
    void setLocalViewer(bool on) { local = on; }
    void setTwoSide(bool on) { two_side = on; }
    /// Highlights are mixed into the texture, as opposed to put on top of it.
    void setSingleColor(bool on) { single_color = on; }
    void applyModel() const;

    void activateLighting() const;
    void deactivateLighting() const;
    bool isActivated() const;

    friend std::ostream& operator<<(std::ostream& out, const LightFactory& factory);

private:
    /// The index of the lowest free slot. Throws Exception when there is none.
    std::size_t getNextAvailable() const;

    template <typename Light, typename... Place>
    _Light* fillSlot(ColorRGB* diff, ColorRGB* amb, ColorRGB* spec, const Place&... place);

    std::unique_ptr<ColorRGB> ambient;
    bool local = false;
    bool two_side = false;
    bool single_color = true;
    std::vector<std::unique_ptr<_Light>> lights;  // entry i is GL_LIGHT0 + i
};

/// The light model, then every light in use.
std::ostream& operator<<(std::ostream& out, const LightFactory& factory);
