#include "3d/texture.h"

#include "3d/texture_factory.h"
#include "main/log_factory.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {

constexpr struct {
    GLint mode;
    const char* name;
} environments[] = {
    {GL_DECAL, "GL_DECAL"},
    {GL_REPLACE, "GL_REPLACE"},
    {GL_BLEND, "GL_BLEND"},
    {GL_MODULATE, "GL_MODULATE"},
};

/// Null for a mode that OpenGL does not know.
const char* environmentName(GLint mode) {
    const auto* found = std::find_if(std::begin(environments), std::end(environments),
                                     [mode](const auto& e) { return e.mode == mode; });
    return found == std::end(environments) ? nullptr : found->name;
}

}  // namespace

Texture::Texture(const std::string& f, int te, bool c_sw)
    : filename(f), tex_obj(TextureFactory::getInstance()->getTexObject(f, c_sw)), tex_env(te) {}

Texture::Texture()
    : filename("none"),
      tex_obj(tmp),
      tmp(TextureFactory::getInstance()->getTexObjectFromFramebuffer(0, 0, 0, 0)),
      tex_env(GL_MODULATE) {}

Texture::Texture(const Texture& other)
    : filename(other.filename),
      tex_obj(other.isFromFrameBuffer() ? tmp : other.tex_obj),
      u_tile(other.u_tile),
      v_tile(other.v_tile),
      u_off(other.u_off),
      v_off(other.v_off),
      tex_env(other.tex_env) {
    if (isFromFrameBuffer())
        tmp = TextureFactory::getInstance()->getTexObjectFromFramebuffer(0, 0, 0, 0);
}

Texture::~Texture() {
    if (isFromFrameBuffer()) TextureFactory::getInstance()->deleteTexObject(tmp);
}

void Texture::grabFrameBuffer(unsigned int x, unsigned int y, unsigned int w, unsigned int h) {
    TextureFactory* factory = TextureFactory::getInstance();
    factory->deleteTexObject(tex_obj);
    tex_obj = factory->getTexObjectFromFramebuffer(x, y, w, h);
}

void Texture::activate() const {
    if (!environmentName(tex_env)) {
        logLine(std::cerr, "WARNING (3D): ",
                "Texture::activate: invalid tex_env, falling back to GL_MODULATE");
        tex_env = GL_MODULATE;
    }
    if (tex_obj == 0) {
        logLine(std::cerr, "WARNING (3D): ", "Texture::activate: invalid texture object");
        return;
    }
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, tex_obj);
    glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, static_cast<float>(tex_env));
}

std::ostream& operator<<(std::ostream& out, const Texture& t) {
    const char* name = environmentName(t.tex_env);
    return out << "* File: " << t.filename << std::endl
               << "* texture environment mode: " << (name ? name : "invalid");
}
