#include "3d/texture_factory.h"

#include "3d/image.h"
#include "main/log_factory.h"

#include <GL/glu.h>

#include <algorithm>
#include <bit>
#include <iostream>

TextureFactory* TextureFactory::instance = nullptr;

namespace {

/// Tells OpenGL how many levels will follow. It then takes room for all of them at once; else it
/// may take the first level for the only one, and hold it twice from the second on.
void announceMipmaps(const Image& image) {
    const auto longest = static_cast<unsigned>(std::max(image.getWidth(), image.getHeight()));
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL,
                    static_cast<GLint>(std::bit_width(longest)) - 1);
}

}  // namespace

TextureFactory* TextureFactory::getInstance() {
    if (!instance) instance = new TextureFactory();
    return instance;
}

unsigned int& TextureFactory::getTexObject(const std::string& t, bool c_sw) {
    auto& [name, shared] = tex_objs[t];
    shared = name != 0;
    if (shared) return name;

    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    Image image(t, true, DEFAULT_ALPHA);
    if (c_sw) image.swapColors(0, 0, 0, 255, 255, 255);
    announceMipmaps(image);
    if (gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA, image.getWidth(), image.getHeight(),
                          image.getGLFormat(), image.getGLType(), image.getPixels()) != 0)
        logLine(std::cerr, "ERROR (3D): ", "couldn't generate mipmaps for <", t,
                ">: ", gluErrorString(glGetError()));
    applyModel();
    return name;
}

unsigned int TextureFactory::getTexObjectFromFramebuffer(unsigned int x, unsigned int y,
                                                         unsigned int w, unsigned int h) const {
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glCopyTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, static_cast<GLint>(x), static_cast<GLint>(y),
                     static_cast<GLsizei>(w), static_cast<GLsizei>(h), 0);
    applyModel();
    return name;
}

void TextureFactory::deleteTexObject(const std::string& t) {
    const auto entry = tex_objs.find(t);
    if (entry != tex_objs.end() && entry->second.name != 0) deleteTexObject(entry->second.name);
}

void TextureFactory::releaseTexObject(const std::string& t) {
    const auto entry = tex_objs.find(t);
    if (entry != tex_objs.end() && !entry->second.shared) deleteTexObject(t);
}

void TextureFactory::deleteTexObject(unsigned int& o) {
    glDeleteTextures(1, &o);
    o = 0;
}

void TextureFactory::activate() const {
    if (!isActivated()) glEnable(GL_TEXTURE_2D);
}

void TextureFactory::deactivate() const {
    if (isActivated()) glDisable(GL_TEXTURE_2D);
}

bool TextureFactory::isActivated() const {
    return glIsEnabled(GL_TEXTURE_2D) == GL_TRUE;
}

void TextureFactory::applyModel() const {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
}

std::ostream& operator<<(std::ostream& out, const TextureFactory& tf) {
    return out << "* # texture objects: " << tf.tex_objs.size() << std::endl;
}
