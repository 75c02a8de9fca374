#pragma once

#include "3d/camera_interface.h"
#include "3d/vector.h"

#include <ostream>

/// The plain free camera: it stands at a position, looks at a target and can orbit it. Menus and
/// the scene behind them use it.
class Camera : public _CameraInterface {
public:
    /// At (2, 5, 10), with a far plane at 500 instead of the 1000 of the others. All look at the
    /// origin and stand upright unless told otherwise.
    Camera();
    explicit Camera(const Point4& p);
    Camera(const Point4& p, const Vector4& u);
    Camera(const Point4& p, const Vector4& u, const Point4& t);

    Point4 getPosition() const override { return position; }
    Vector4 getUp() const { return up; }
    Point4 getTarget() const { return target; }

    void setPosition(const Point4& p) { position = p; }
    void setUp(const Vector4& u) { up = u; }
    void setTarget(const Point4& t) { target = t; }

    /// Orbit the target about a world axis by `phi` degrees.
    void rotateX(float phi);
    void rotateY(float phi);
    void rotateZ(float phi);

    /// The camera cannot bank: these change nothing.
    void rollX(float) {}
    void rollY(float) {}
    void rollZ(float) {}

    void activate() const override;

    friend std::ostream& operator<<(std::ostream& out, const Camera& camera);

private:
    Camera(const Point4& p, const Vector4& u, const Point4& t, float far_limit);

    Point4 position;
    Point4 target;
    Vector4 up;
};

/// Position, target and up vector, then the four numbers of the projection.
std::ostream& operator<<(std::ostream& out, const Camera& camera);
