#pragma once

#include "3d/quadrupel.h"

class Point4;

/// A direction or displacement in space. `w` is 1 for a plain direction.
/// Operations change the vector in place and return it; the free operators work on copies.
/// What involves points is defined in 3d/point.h, what involves matrices in 3d/matrix.h.
class Vector4 final : public _Quadrupel {
public:
    Vector4() = default;
    Vector4(float vx, float vy, float vz, float vw) : _Quadrupel(vx, vy, vz, vw) {}
    /// Copies four floats. Throws VectorException for a null pointer.
    explicit Vector4(const float* v);
    /// The displacement from the origin to `p`; all four coordinates are copied.
    inline Vector4(const Point4& p);
    /// The displacement from `a` to `b`, with `w` = 1.
    inline Vector4(const Point4& a, const Point4& b);

    /// Divides by `w`, unless `w` is 0 or 1.
    Vector4& homogenize() {
        divideOutW();
        return *this;
    }

    /// Homogenizes and scales to length 1. A vector without length becomes NaN.
    Vector4& normalize() {
        scaleToUnit();
        return *this;
    }

    /// The length of x, y, z as stored; `w` is not read.
    float getLength() const { return length(); }

    /// Turns about a world axis by radians, counter-clockwise seen from its tip.
    Vector4& rotateX(float phi);
    Vector4& rotateY(float phi);
    Vector4& rotateZ(float phi);
    /// rotateX, rotateY and rotateZ in this order, in radians.
    Vector4& rotate(float phi_x, float phi_y, float phi_z);
    Vector4& rotate(float phi) { return rotate(phi, phi, phi); }
    /// Turns about any axis by `phi` degrees, clockwise seen from the tip of the axis: the steering
    /// convention, opposite to rotateX and its sisters. An axis without length turns nothing.
    Vector4& rotate(const Vector4& axis, float phi);

    /// Homogenizes this vector, then adds or subtracts the homogenized `v`.
    Vector4& operator+=(const Vector4& v) {
        add(v, 1);
        return *this;
    }
    Vector4& operator-=(const Vector4& v) {
        add(v, -1);
        return *this;
    }

    /// The number goes to each of x, y, z; `w` stays.
    Vector4& operator+=(float f) {
        x += f;
        y += f;
        z += f;
        return *this;
    }
    Vector4& operator-=(float f) { return *this += -f; }
    Vector4& operator*=(float f) {
        multiplyBy(f);
        return *this;
    }
    Vector4& operator/=(float f) {
        divideBy(f);
        return *this;
    }

    /// The transform that reads the matrix by rows. Translates like a point.
    inline Vector4& operator*=(const Matrix4& m);
    /// The transform as OpenGL does it. Translates like a point.
    inline Vector4& operator^=(const Matrix4& m);

    /// A line from the origin to `f` times the vector.
    void drawDummy(const ColorRGB& c, float f) const override;
};

inline Vector4 operator+(Vector4 a, const Vector4& b) {
    return a += b;
}
inline Vector4 operator-(Vector4 a, const Vector4& b) {
    return a -= b;
}
inline Vector4 operator+(Vector4 v, float f) {
    return v += f;
}
inline Vector4 operator-(Vector4 v, float f) {
    return v -= f;
}
inline Vector4 operator*(Vector4 v, float f) {
    return v *= f;
}
inline Vector4 operator/(Vector4 v, float f) {
    return v /= f;
}

/// The dot product of the homogenized operands.
inline float operator*(Vector4 a, Vector4 b) {
    a.homogenize();
    b.homogenize();
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// The cross product of the homogenized operands, with `w` = 1.
inline Vector4 operator^(Vector4 a, Vector4 b) {
    a.homogenize();
    b.homogenize();
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x, 1};
}
