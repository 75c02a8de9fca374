#include "3d/camera_interface.h"

#include "3d/opengl.h"
#include "3d/vector.h"

#include <GL/glu.h>

_CameraInterface::_CameraInterface(float f, float a, float n, float ff)
    : m(MATRIX_UNIT), fovy(f), aspect(a), p_near(n), p_far(ff) {}

_CameraInterface::~_CameraInterface() {
    OpenGLContext::forgetCamera(*this);
}

void _CameraInterface::setAspectRatio(float a) {
    aspect = a;
    loadProjection();
}

void _CameraInterface::zoom(float f) {
    fovy *= 1 - f / 100;
    loadProjection();
}

void _CameraInterface::lookAt(const Point4& eye, const Point4& target, const Vector4& up) const {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(eye.x, eye.y, eye.z, target.x, target.y, target.z, up.x, up.y, up.z);
    updateMatrix();
    updateFrustum();
}

void _CameraInterface::updateMatrix() const {
    m = Matrix4(MATRIX_GL_MODELVIEW);
}

void _CameraInterface::loadProjection() const {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fovy, aspect, p_near, p_far);
}
