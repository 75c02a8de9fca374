#pragma once

#include "3d/vector.h"

class Line;
class Plane;

/// A place in space. Operations change the point in place and return it; the free operators work
/// on copies. The displacement between two points is Vector4(a, b), never a difference.
class Point4 final : public _Quadrupel {
public:
    Point4() = default;
    Point4(float vx, float vy, float vz, float vw) : _Quadrupel(vx, vy, vz, vw) {}
    /// Copies four floats. Throws QuadrupelException for a null pointer.
    explicit Point4(const float* v) : _Quadrupel(v) {}
    /// The place that `v` leads to from the origin; all four coordinates are copied.
    Point4(const Vector4& v) : _Quadrupel(v.x, v.y, v.z, v.w) {}
    /// The midpoint of `p1` and `p2`.
    Point4(const Point4& p1, const Point4& p2);
    /// Where `l` meets `p`. Throws IntersectException when they are parallel.
    Point4(const Plane& p, const Line& l);
    /// The common point of three planes. Throws IntersectException when there is not exactly one.
    Point4(const Plane& e1, const Plane& e2, const Plane& e3);

    /// Divides by `w`, unless `w` is 0 or 1.
    Point4& homogenize() {
        divideOutW();
        return *this;
    }

    /// Homogenizes and moves the point to distance 1 from the origin. The origin becomes NaN.
    Point4& normalize() {
        scaleToUnit();
        return *this;
    }

    /// Homogenizes this point, then moves it along or against the homogenized `v`.
    Point4& operator+=(const Vector4& v) {
        add(v, 1);
        return *this;
    }
    Point4& operator-=(const Vector4& v) {
        add(v, -1);
        return *this;
    }

    Point4& operator*=(float f) {
        multiplyBy(f);
        return *this;
    }
    Point4& operator/=(float f) {
        divideBy(f);
        return *this;
    }

    /// The transform that reads the matrix by rows. The result is not homogenized.
    inline Point4& operator*=(const Matrix4& m);
    /// The transform as OpenGL does it. The result is not homogenized.
    inline Point4& operator^=(const Matrix4& m);

    /// Sends the point to OpenGL as a vertex, between glBegin and glEnd.
    void draw() const;

    /// A dot of `f` pixels, or of one pixel when `f` is not above 0.
    void drawDummy(const ColorRGB& c, float f) const override;
};

inline Vector4::Vector4(const Point4& p) : _Quadrupel(p.x, p.y, p.z, p.w) {}

inline Vector4::Vector4(const Point4& a, const Point4& b) : _Quadrupel(b.x, b.y, b.z, b.w) {
    add(a, -1);
    w = 1;
}

inline Point4 operator+(Point4 p, const Vector4& v) {
    return p += v;
}
inline Point4 operator-(Point4 p, const Vector4& v) {
    return p -= v;
}
inline Point4 operator+(const Vector4& v, const Point4& p) {
    return Point4(v) += Vector4(p);
}
inline Point4 operator*(Point4 p, float f) {
    return p *= f;
}
inline Point4 operator/(Point4 p, float f) {
    return p /= f;
}
Point4 operator-(const Point4&, const Point4&) = delete;
