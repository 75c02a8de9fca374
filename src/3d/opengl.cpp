#include "3d/opengl.h"

#include "3d/camera_interface.h"
#include "3d/color_rgba.h"
#include "3d/font.h"
#include "3d/font_factory.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "main/sdl_context.h"

#include <GL/glu.h>
#include <SDL.h>

#include <iostream>
#include <string>

OpenGLContext* OpenGLContext::instance = nullptr;

namespace {

constexpr int num_draw_modes = 5;  // without shadows

std::string glText(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text ? reinterpret_cast<const char*>(text) : "";
}

bool hasExtension(const char* name) {
    const GLubyte* extensions = glGetString(GL_EXTENSIONS);
    return extensions &&
           gluCheckExtension(reinterpret_cast<const GLubyte*>(name), extensions) == GL_TRUE;
}

GLint glInteger(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

}  // namespace

OpenGLContext* OpenGLContext::getInstance() {
    if (!instance) instance = new OpenGLContext();
    return instance;
}

OpenGLContext::OpenGLContext() {
    SDL_GL_GetAttribute(SDL_GL_STENCIL_SIZE, &stencil_planes);
    multitex_supported = hasExtension("GL_ARB_multitexture");
    texcomp_supported = hasExtension("GL_ARB_texture_compression");
    max_tex_units = glInteger(GL_MAX_TEXTURE_UNITS_ARB);
    aux_buffers = glInteger(GL_AUX_BUFFERS);
    accelerated = glText(GL_RENDERER).find("Indirect") == std::string::npos;
    logLine(std::cout, "!! 3D(5): ", accelerated);

    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glClearColor(0, 0, 0, 0);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_NORMALIZE);  // what is drawn at another scale is lit like the rest

    lights.push_back(lf.getOmniLight(Point4(0, 50, 0, 1), new ColorRGB(1, 1, 1)));
    lf.applyModel();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT |
            GL_ACCUM_BUFFER_BIT);
}

OpenGLContext::~OpenGLContext() {
    for (_Light* lamp : lights) lf.deleteLight(*lamp);
    instance = nullptr;
}

void OpenGLContext::startFrame(bool c) const {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (c && currentCamera) currentCamera->activate();
    if (light_on)
        lf.activateLighting();
    else
        lf.deactivateLighting();
    placeLights();
}

void OpenGLContext::endFrame() const {
    if (show_fps) drawFrameRate();
    ++num_frames;
    if (const GLenum error = glGetError(); error != GL_NO_ERROR)
        logLine(std::cerr, "ERROR (3D): ", "OpenGLContext::endFrame: OpenGL Error: ",
                reinterpret_cast<const char*>(gluErrorString(error)));
    SDL_GL_SwapBuffers();
}

void OpenGLContext::reshape(int w, int h) {
    if (currentCamera) currentCamera->setAspectRatio(static_cast<float>(w) / static_cast<float>(h));
    glViewport(0, 0, w, h);
}

void OpenGLContext::placeLights() const {
    for (_Light* lamp : lights) lamp->activate(false);
}

void OpenGLContext::switchTo2D(double left, double right, double bottom, double top) const {
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);  // a wire model leaves lines behind
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(left, right, bottom, top);
    glMatrixMode(GL_MODELVIEW);
}

void OpenGLContext::switchTo3D() const {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void OpenGLContext::setCurrentCamera(_CameraInterface* c) {
    if (!c) throw Exception("OpenGLContext::setCurrentCamera: null pointer");
    currentCamera = c;
    c->setAspectRatio(SDLContext::getInstance()->getAspectRatio());
}

void OpenGLContext::forgetCamera(const _CameraInterface& c) {
    if (instance && instance->currentCamera == &c) instance->currentCamera = nullptr;
}

void OpenGLContext::setDrawMode(int i) {
    const int mode = i % num_draw_modes;
    draw_mode = static_cast<DRWenum>(mode < 0 ? mode + num_draw_modes : mode);
}

void OpenGLContext::activateBlending() const {
    if (!blend_on) return;
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void OpenGLContext::deactivateBlending() const {
    glDisable(GL_BLEND);
}

Image OpenGLContext::captureScreen(int x, int y, int w, int h) const {
    return {x, y, x + w, y + h, true};
}

// On a screen of 400 by 300, whatever the window's size.
void OpenGLContext::drawFrameRate() const {
    _Font* font = FontFactory::getInstance()->getFont("helvetica_big");
    switchTo2D(0, 400, 0, 300);
    activateBlending();
    glDisable(GL_DEPTH_TEST);
    font->write(365.0, 290.0, std::to_string(fps) + " fps", new ColorRGBA(0.8f, 0.3f, 0.2f, 0.6f),
                DRAW_FLAT);
    glEnable(GL_DEPTH_TEST);
    deactivateBlending();
    switchTo3D();
}

unsigned int updateFPS(unsigned int intv, void*) {
    OpenGLContext* gl = OpenGLContext::instance;
    if (gl) gl->fps = gl->num_frames.exchange(0) * 1000 / intv;
    return intv;
}

std::ostream& operator<<(std::ostream& out, const OpenGLContext& context) {
    const auto yes_or_no = [](bool is) { return is ? "yes" : "no"; };
    return out << "* OpenGL vendor: " << glText(GL_VENDOR)
               << "\n* OpenGL renderer: " << glText(GL_RENDERER)
               << "\n* OpenGL version: " << glText(GL_VERSION)
               << "\n* GLU version: " << reinterpret_cast<const char*>(gluGetString(GLU_VERSION))
               << "\n* single-pass multitexturing: " << yes_or_no(context.multitex_supported)
               << " (" << context.max_tex_units << ')'
               << "\n* texture compression: " << yes_or_no(context.texcomp_supported)
               << "\n* stencil planes: " << context.stencil_planes
               << "\n* auxiliary buffers: " << context.aux_buffers;
}
