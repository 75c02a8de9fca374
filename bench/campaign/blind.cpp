// OpenGL draws nothing without a context, but the game asks it for a few things that it cannot do
// without; here they are.

#include "bench/campaign/blind.h"

#include "main/exception.h"
#include "main/sdl_context.h"

#include <GL/freeglut.h>
#include <GL/glu.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace {

constexpr int width = 800;
constexpr int height = 600;

long names_in_use = 0;

/// As many names as asked for, that were never given before.
GLuint takeNames(GLsizei count) {
    static GLuint next = 1;
    const GLuint first = next;
    next += static_cast<GLuint>(count);
    names_in_use += count;
    return first;
}

}  // namespace

void blind::start(int subsystems) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) < 0) throw Exception(SDL_GetError());
    SDL_SetVideoMode(1, 1, 0, 0);
    SDLContext::init(subsystems, width, height);
}

long blind::countNames() {
    return names_in_use;
}

extern "C" {

GLuint glGenLists(GLsizei count) {
    return takeNames(count);
}

void glDeleteLists(GLuint, GLsizei count) {
    names_in_use -= count;
}

void glGenTextures(GLsizei count, GLuint* names) {
    std::iota(names, names + count, takeNames(count));
}

void glDeleteTextures(GLsizei count, const GLuint*) {
    names_in_use -= count;
}

void glGetIntegerv(GLenum, GLint* value) {
    constexpr GLint lights = 8;
    *value = lights;
}

/// A view that reaches a million units to all sides.
void glGetFloatv(GLenum, GLfloat* matrix) {
    constexpr GLfloat scale = 0.001F;
    constexpr int size = 4;
    std::fill_n(matrix, size * size, 0.0F);
    for (int i = 0; i < size; ++i) matrix[i * size + i] = i < size - 1 ? scale : 1;
}

GLint gluBuild2DMipmaps(GLenum, GLint, GLsizei, GLsizei, GLenum, GLenum, const void*) {
    return 0;
}

void glutInit(int*, char**) {}
void glutBitmapCharacter(void*, int) {}
void glutSolidSphere(double, GLint, GLint) {}
void glutWireSphere(double, GLint, GLint) {}
}
