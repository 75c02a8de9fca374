#pragma once

#include "3d/color_rgb.h"
#include "3d/texture.h"

#include <memory>
#include <ostream>
#include <string>

/// How a material combines its texture with its colours. Bit masks: bit 0 replaces the colours by
/// white while the texture is on, bits 4 and 8 choose the texture environment.
enum MTLenum {
    MTL_TEX_DECAL = 0,
    MTL_TEX_COMBINED = 16,
    MTL_TEX_ONLY = 17,
    MTL_TEX_REPLACE = 256,
};

/// Writes the name of the mode, or "invalid".
std::ostream& operator<<(std::ostream& out, MTLenum mode);

/// The surface of a model: what it reflects of the ambient, the diffuse and the specular light, how
/// much it shines, and at most one texture. Held by the models and by everything that draws a
/// surface of its own. Owns its colours and its texture; colours handed in as raw pointers belong
/// to the material from then on, and one colour may serve as several of the three.
class Material {
public:
    /// A light grey surface without texture.
    Material();
    /// A grey surface with the picture of file `tex`; `c_sw` turns its black pixels white. Throws
    /// Exception when the picture cannot be loaded.
    Material(const std::string& tex, MTLenum m, bool c_sw);
    /// Takes ownership of `d`, which is both the diffuse and the specular colour; ambient is black.
    explicit Material(ColorRGB* d);
    /// Takes ownership of both; `d` is also the specular colour.
    Material(ColorRGB* a, ColorRGB* d);
    /// Takes ownership of all three. As in the other forms, a null colour throws Exception.
    Material(ColorRGB* a, ColorRGB* d, ColorRGB* s, float shiny);
    /// A deep copy, whose colours are three separate ones without alpha.
    Material(const Material& other);
    Material& operator=(const Material&) = delete;
    ~Material() = default;

    const ColorRGB* getAmbient() const { return ambient.get(); }
    const ColorRGB* getDiffuse() const { return diffuse.get(); }
    const ColorRGB* getSpecular() const { return specular.get(); }
    float getShininess() const { return shininess; }
    MTLenum getMtlMode() const { return mtl_mode; }
    bool hasTexture() const { return texture != nullptr; }
    /// The texture, which the material keeps. Throws Exception when there is none.
    Texture* getTexture() const;

    /// Each takes ownership of the new colour and releases the old one, unless it still serves as
    /// another of the three. Throws Exception on a null pointer.
    void setAmbient(ColorRGB* c);
    void setDiffuse(ColorRGB* c);
    void setSpecular(ColorRGB* c);
    void setShininess(float shiny) { shininess = shiny; }
    void setMtlMode(MTLenum m) { mtl_mode = m; }
    /// Replaces the texture and the mode. Throws Exception when the picture cannot be loaded.
    void setTexture(const std::string& t, MTLenum m, bool c_sw);

    /// Loads the surface into the OpenGL state, with its texture if `tex` is set, otherwise with
    /// texturing off. The diffuse colour becomes the current one.
    void activate(bool tex) const;
    void deactivate() const;

private:
    using Color = std::shared_ptr<ColorRGB>;

    /// Takes ownership of `c`, or shares in it if one of the three fields has it already.
    Color own(ColorRGB* c) const;

    Color ambient;
    Color diffuse;
    Color specular;
    float shininess = 50;
    std::unique_ptr<Texture> texture;
    MTLenum mtl_mode = MTL_TEX_ONLY;
};

/// Writes the surface, one property a line.
std::ostream& operator<<(std::ostream& out, const Material& m);
