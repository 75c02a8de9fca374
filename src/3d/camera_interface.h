#pragma once

#include "3d/frustum.h"
#include "3d/matrix.h"
#include "3d/point.h"

#include <GL/gl.h>

/// A camera as the renderer knows it: a perspective projection, a view set up by the derived class,
/// and the view frustum of its last activation. The OpenGL context observes the current one; a
/// camera that dies is forgotten there.
class _CameraInterface {
public:
    virtual ~_CameraInterface();

    virtual Point4 getPosition() const = 0;
    /// Loads the view, by lookAt() in all implementations.
    virtual void activate() const = 0;

    /// What the camera sees, and the view matrix, both as of the last activation.
    Frustum getFrustum() const { return frustum; }
    Matrix4 getMatrix() const { return m; }

    /// Stores width over height and loads the projection. Leaves the matrix mode at projection.
    void setAspectRatio(float a);
    /// Narrows the field of view by `f` percent, widens it for f below 0, and loads the projection.
    void zoom(float f);

protected:
    /// Vertical field of view in degrees, width over height (below 0: not known yet), and the near
    /// and far clipping distance.
    _CameraInterface(float f, float a, float n, float ff);
    _CameraInterface(const _CameraInterface&) = default;
    _CameraInterface& operator=(const _CameraInterface&) = default;

    /// Loads the view from `eye` to `target` with `up` as what is up, and keeps what is seen.
    void lookAt(const Point4& eye, const Point4& target, const Vector4& up) const;
    void updateMatrix() const;
    void updateFrustum() const { frustum.update(); }

    float getFovy() const { return fovy; }
    float getAspect() const { return aspect; }
    float getNear() const { return p_near; }
    float getFar() const { return p_far; }

private:
    void loadProjection() const;

    mutable Matrix4 m;
    mutable Frustum frustum;
    GLfloat fovy;
    GLfloat aspect;
    GLfloat p_near;
    GLfloat p_far;
};
