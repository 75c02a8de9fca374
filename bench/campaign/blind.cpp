// The campaign is flown without a window. OpenGL draws nothing without a context, but the game asks
// it for a few things that it cannot do without; here they are.

#include <GL/freeglut.h>
#include <GL/glu.h>

#include <numeric>

namespace {

/// As many names as asked for, that were never given before.
GLuint takeNames(GLsizei count) {
    static GLuint next = 1;
    const GLuint first = next;
    next += static_cast<GLuint>(count);
    return first;
}

}  // namespace

extern "C" {

GLuint glGenLists(GLsizei count) {
    return takeNames(count);
}

void glGenTextures(GLsizei count, GLuint* names) {
    std::iota(names, names + count, takeNames(count));
}

void glGetIntegerv(GLenum, GLint* value) {
    constexpr GLint lights = 8;
    *value = lights;
}

GLint gluBuild2DMipmaps(GLenum, GLint, GLsizei, GLsizei, GLenum, GLenum, const void*) {
    return 0;
}

void glutInit(int*, char**) {}
void glutBitmapCharacter(void*, int) {}
}
