#include "3d/vector.h"

#include "3d/3d_exception.h"
#include "3d/color_rgb.h"
#include "3d/util3d.h"

#include <GL/gl.h>

#include <array>

namespace {

const float* notNull(const float* v) {
    if (!v) throw VectorException("Vector4::Vector4: null pointer");
    return v;
}

/// Turns the pair (u, v) from u towards v.
void turn(float& u, float& v, float phi) {
    const float c = std::cos(phi);
    const float s = std::sin(phi);
    const float old_u = u;
    u = u * c - v * s;
    v = v * c + old_u * s;
}

}  // namespace

Vector4::Vector4(const float* v) : _Quadrupel(notNull(v)) {}

Vector4& Vector4::rotateX(float phi) {
    turn(y, z, phi);
    return *this;
}

Vector4& Vector4::rotateY(float phi) {
    turn(z, x, phi);
    return *this;
}

Vector4& Vector4::rotateZ(float phi) {
    turn(x, y, phi);
    return *this;
}

Vector4& Vector4::rotate(float phi_x, float phi_y, float phi_z) {
    return rotateX(phi_x).rotateY(phi_y).rotateZ(phi_z);
}

Vector4& Vector4::rotate(const Vector4& axis, float phi) {
    const Vector4 unit = Vector4(axis).normalize();
    w = 1;
    // Steering asks for turns from one direction to another, which have no axis when the two are
    // the same or opposite.
    if (!(unit.getLength() > 0)) return *this;

    const float r = util3d::deg2rad(-phi);
    const float c = std::cos(r);
    const float s = std::sin(r);
    const float t = 1 - c;
    const auto [ax, ay, az] = std::array{unit.x, unit.y, unit.z};
    const auto [vx, vy, vz] = std::array{x, y, z};

    x = (t * ax * ax + c) * vx + (t * ax * ay - s * az) * vy + (t * ax * az + s * ay) * vz;
    y = (t * ax * ay + s * az) * vx + (t * ay * ay + c) * vy + (t * ay * az - s * ax) * vz;
    z = (t * ax * az - s * ay) * vx + (t * ay * az + s * ax) * vy + (t * az * az + c) * vz;
    return *this;
}

void Vector4::drawDummy(const ColorRGB& c, float f) const {
    c.activate();
    glDisable(GL_TEXTURE_2D);
    glBegin(GL_LINES);
    glVertex3f(0, 0, 0);
    glVertex3f(f * x, f * y, f * z);
    glEnd();
}
