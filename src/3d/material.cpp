#include "3d/material.h"

#include "main/exception.h"

#include <GL/gl.h>

namespace {

constexpr int white_bit = 0x001;    // white in place of the colours while the texture is on
constexpr int color_bit = 0x010;    // the texture is modulated by the lit colour
constexpr int replace_bit = 0x100;  // the texture replaces the lit colour

GLint textureEnvironment(MTLenum mode) {
    if (!(mode & (color_bit | replace_bit))) return GL_DECAL;
    return mode & replace_bit ? GL_REPLACE : GL_MODULATE;
}

void loadColor(GLenum property, const ColorRGB& color) {
    float rgba[4];
    color.getRGBA(rgba);
    glMaterialfv(GL_FRONT, property, rgba);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, MTLenum mode) {
    switch (mode) {
        case MTL_TEX_DECAL:
            return out << "MTL_TEX_DECAL";
        case MTL_TEX_COMBINED:
            return out << "MTL_TEX_COMBINED";
        case MTL_TEX_ONLY:
            return out << "MTL_TEX_ONLY";
        case MTL_TEX_REPLACE:
            return out << "MTL_TEX_REPLACE";
    }
    return out << "invalid";
}

Material::Material()
    : ambient(std::make_shared<ColorRGB>(0.0f, 0.0f, 0.0f)),
      diffuse(std::make_shared<ColorRGB>(0.7f, 0.7f, 0.7f)),
      specular(std::make_shared<ColorRGB>(0.9f, 0.9f, 0.9f)) {}

Material::Material(const std::string& tex, MTLenum m, bool c_sw)
    : ambient(std::make_shared<ColorRGB>(0.0f, 0.0f, 0.0f)),
      diffuse(std::make_shared<ColorRGB>()),
      specular(std::make_shared<ColorRGB>()) {
    setTexture(tex, m, c_sw);
}

Material::Material(ColorRGB* d) : Material(new ColorRGB(0, 0, 0), d) {}

Material::Material(ColorRGB* a, ColorRGB* d) : Material(a, d, d, 50) {}

Material::Material(ColorRGB* a, ColorRGB* d, ColorRGB* s, float shiny) : shininess(shiny) {
    // All three are taken before any is found missing, so that the others are freed.
    ambient = own(a);
    diffuse = own(d);
    specular = own(s);
    if (!ambient || !diffuse || !specular) throw Exception("Material::Material: null pointer");
}

Material::Material(const Material& other)
    : ambient(std::make_shared<ColorRGB>(*other.ambient)),
      diffuse(std::make_shared<ColorRGB>(*other.diffuse)),
      specular(std::make_shared<ColorRGB>(*other.specular)),
      shininess(other.shininess),
      texture(other.texture ? std::make_unique<Texture>(*other.texture) : nullptr),
      mtl_mode(other.mtl_mode) {}

Material::Color Material::own(ColorRGB* c) const {
    for (const Color* held : {&ambient, &diffuse, &specular})
        if (held->get() == c) return *held;
    return Color(c);
}

Texture* Material::getTexture() const {
    if (!texture) throw Exception("Material::getTexture: null pointer");
    return texture.get();
}

void Material::setAmbient(ColorRGB* c) {
    if (!c) throw Exception("Material::setAmbient: null pointer");
    ambient = own(c);
}

void Material::setDiffuse(ColorRGB* c) {
    if (!c) throw Exception("Material::setDiffuse: null pointer");
    diffuse = own(c);
}

void Material::setSpecular(ColorRGB* c) {
    if (!c) throw Exception("Material::setSpecular: null pointer");
    specular = own(c);
}

void Material::setTexture(const std::string& t, MTLenum m, bool c_sw) {
    texture = std::make_unique<Texture>(t, textureEnvironment(m), c_sw);
    mtl_mode = m;
}

void Material::activate(bool tex) const {
    const bool textured = tex && texture;
    if (textured)
        texture->activate();
    else
        glDisable(GL_TEXTURE_2D);

    const ColorRGB white(1, 1, 1);
    const bool in_white = textured && (mtl_mode & white_bit);
    loadColor(GL_AMBIENT, in_white ? white : *ambient);
    loadColor(GL_DIFFUSE, in_white ? white : *diffuse);
    loadColor(GL_SPECULAR, in_white ? white : *specular);
    glMaterialf(GL_FRONT, GL_SHININESS, shininess);
    // What is drawn without lighting takes the diffuse colour, also where light would find white.
    diffuse->activate();
}

void Material::deactivate() const {
    if (texture) texture->deactivate();
}

std::ostream& operator<<(std::ostream& out, const Material& m) {
    out << "* ambient: " << *m.getAmbient() << std::endl
        << "* diffuse: " << *m.getDiffuse() << std::endl
        << "* specular: " << *m.getSpecular() << std::endl
        << "* shininess: " << m.getShininess() << std::endl;
    if (!m.hasTexture()) return out << "* texture: no" << std::endl;
    return out << "* texture: yes" << std::endl
               << "* material mode: " << m.getMtlMode() << std::endl
               << *m.getTexture();
}
