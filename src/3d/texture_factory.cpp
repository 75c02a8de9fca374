#include "3d/texture_factory.h"

#include "3d/image.h"
#include "main/log_factory.h"

#include <GL/glu.h>

#include <iostream>

TextureFactory* TextureFactory::instance = nullptr;

TextureFactory* TextureFactory::getInstance() {
    if (!instance) instance = new TextureFactory();
    return instance;
}

unsigned int& TextureFactory::getTexObject(const std::string& t, bool c_sw) {
    unsigned int& entry = tex_objs[t];
    if (entry != 0) return entry;

    glGenTextures(1, &entry);
    glBindTexture(GL_TEXTURE_2D, entry);
    Image image(t, true, DEFAULT_ALPHA);
    if (c_sw) image.swapColors(0, 0, 0, 255, 255, 255);
    if (gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA, image.getWidth(), image.getHeight(),
                          image.getGLFormat(), image.getGLType(), image.getPixels()) != 0)
        logLine(std::cerr, "ERROR (3D): ", "couldn't generate mipmaps for <", t,
                ">: ", gluErrorString(glGetError()));
    applyModel();
    return entry;
}

unsigned int TextureFactory::getTexObjectFromFramebuffer(unsigned int x, unsigned int y,
                                                         unsigned int w, unsigned int h) {
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
    if (entry != tex_objs.end() && entry->second != 0) deleteTexObject(entry->second);
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
