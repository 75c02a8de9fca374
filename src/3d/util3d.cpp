#include "3d/util3d.h"

#include "3d/point.h"
#include "main/exception.h"

#include <cmath>
#include <memory>

namespace util3d {

namespace {

/// How far rounding may carry a cosine beyond 1 or -1.
constexpr float forgiven = 1.05f;

float forgiveRounding(float cosine) {
    if (1 < cosine && cosine < forgiven) return 1;
    if (-forgiven < cosine && cosine < -1) return -1;
    return cosine;
}

void writeAngle(std::ostream& out, const char* name, float rad) {
    out << name << rad << " rad (" << rad2deg(rad) << " deg)";
}

}  // namespace

float angle(const Vector2& a, const Vector2& b) {
    return std::acos((a * b) / (a.getLength() * b.getLength()));
}

angle_t angle(const Vector4& a, const Vector4& b) {
    angle_t result;
    result.yz = angle(Vector2(a.y, a.z), Vector2(b.y, b.z));
    result.xz = angle(Vector2(a.x, a.z), Vector2(b.x, b.z));
    result.xy = angle(Vector2(a.x, a.y), Vector2(b.x, b.y));
    result.total = std::acos(forgiveRounding((a * b) / (a.getLength() * b.getLength())));
    return result;
}

// The world axis that leads away from it most decides.
Vector4 perpendicular(const Vector4& v) {
    const float x = std::fabs(v.x), y = std::fabs(v.y), z = std::fabs(v.z);
    if (x <= y && x <= z) return v ^ Vector4(1, 0, 0, 1);
    return v ^ (y <= z ? Vector4(0, 1, 0, 1) : Vector4(0, 0, 1, 1));
}

void rotateY(float* vec, float phi) {
    if (!vec) throw Exception("util3d::rotateY: null pointer");
    const Vector4 turned = Vector4(vec[0], vec[1], vec[2], 1).rotateY(phi);
    vec[0] = turned.x;
    vec[1] = turned.y;
    vec[2] = turned.z;
}

float* normalize(const float* v1, const float* v2, const float* v3) {
    const Point4 corner(v1[0], v1[1], v1[2], 1);
    const Vector4 side1(corner, Point4(v2[0], v2[1], v2[2], 1));
    const Vector4 side2(corner, Point4(v3[0], v3[1], v3[2], 1));
    const Vector4 normal = (side1 ^ side2).normalize();
    auto result = std::make_unique<float[]>(3);
    result[0] = normal.x;
    result[1] = normal.y;
    result[2] = normal.z;
    return result.release();
}

std::ostream& operator<<(std::ostream& out, const angle_t& angle) {
    writeAngle(out, "yz: ", angle.yz);
    writeAngle(out << std::endl, "xz: ", angle.xz);
    writeAngle(out << std::endl, "xy: ", angle.xy);
    writeAngle(out << std::endl, "total: ", angle.total);
    return out;
}

}  // namespace util3d
