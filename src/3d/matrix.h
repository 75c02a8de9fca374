#pragma once

#include "3d/point.h"
#include "3d/vector.h"

#include <ostream>

class Plane;

/// What a new Matrix4 is filled from.
enum MATRIXenum {
    MATRIX_UNIT = 0,
    MATRIX_GL_PROJECTION = 1,
    MATRIX_GL_MODELVIEW = 2,
    MATRIX_GL_FRUSTUM = 3,
};

/// A 4x4 matrix in the store that OpenGL takes and gives.
/// The store has two readings. OpenGL reads `m[i]` as column i: `m[0]`, `m[1]`, `m[2]` are the
/// images of the axes, `m[3]` is the translation; the `^` transform and everything that meets
/// OpenGL use this one. The `*` transform and the rotate and translate family read `m[i]` as row i.
class Matrix4 {
public:
    /// The identity or one of OpenGL's present matrices. MATRIX_GL_FRUSTUM is the clipping matrix:
    /// modelview, then projection.
    explicit Matrix4(MATRIXenum mode);

    /// Puts the three vectors into the columns of the row reading.
    Matrix4(const Vector4& a, const Vector4& b, const Vector4& c);

    /// The frame of an object at `p` with heading `o` (its z axis) and up vector `u` (its y axis),
    /// both of length 1, in the OpenGL reading.
    Matrix4(const Point4& p, const Vector4& o, const Vector4& u);

    /// The projection of shadows from the light at `l_pos` onto the plane whose coefficients
    /// stand in `n`.
    Matrix4(const Point4& l_pos, const Vector4& n);

    /// Makes this the identity.
    Matrix4& reset();

    /// Sets the translation of the row reading; all else stays.
    Matrix4& translate(const Vector4& v);

    /// Each of these starts from the identity: they build a turn, they do not add one. Radians.
    Matrix4& rotateX(float phi);
    Matrix4& rotateY(float phi);
    Matrix4& rotateZ(float phi);
    Matrix4& rotate(float phi_x, float phi_y, float phi_z);

    /// Each of these starts from the identity.
    Matrix4& scaleX(float s) { return scale(s, 1, 1); }
    Matrix4& scaleY(float s) { return scale(1, s, 1); }
    Matrix4& scaleZ(float s) { return scale(1, 1, s); }
    Matrix4& scale(float s_x, float s_y, float s_z);
    Matrix4& scale(float s) { return scale(s, s, s); }

    /// Replaces the matrix by its inverse. One that has none stays as it is and is logged.
    Matrix4& invert();

    /// The images of the axes in the OpenGL reading, with the stored fourth element as `w`.
    Vector4 getX() const { return row(0); }
    Vector4 getY() const { return row(1); }
    Vector4 getZ() const { return row(2); }
    /// The translation of the OpenGL reading.
    Vector4 getTranslation() const { return {m[3][0], m[3][1], m[3][2], 1}; }

    /// The 16 floats as OpenGL takes them.
    const float* getFloatp() const { return m[0]; }

    /// The sides of the volume that a clipping matrix describes; their normals point inwards.
    Plane getLeftPlane() const;
    Plane getRightPlane() const;
    Plane getBottomPlane() const;
    Plane getTopPlane() const;
    Plane getFrontPlane() const;
    Plane getBackPlane() const;

    Matrix4& operator+=(const Matrix4& b);
    Matrix4& operator-=(const Matrix4& b);
    /// In the OpenGL reading the product applies this matrix first and `b` after it.
    Matrix4& operator*=(const Matrix4& b);
    /// The product with this matrix transposed: for two bases the dot products of their axes.
    Matrix4& operator^=(const Matrix4& b);

    float m[4][4];

private:
    Vector4 row(int i) const { return {m[i][0], m[i][1], m[i][2], m[i][3]}; }
    Plane clippingPlane(int axis, float side) const;
};

inline Matrix4 operator+(Matrix4 a, const Matrix4& b) {
    return a += b;
}
inline Matrix4 operator-(Matrix4 a, const Matrix4& b) {
    return a -= b;
}
inline Matrix4 operator*(Matrix4 a, const Matrix4& b) {
    return a *= b;
}
inline Matrix4 operator^(Matrix4 a, const Matrix4& b) {
    return a ^= b;
}

/// Writes four lines "[ a b c d ]".
std::ostream& operator<<(std::ostream& out, const Matrix4& matrix);

inline void _Quadrupel::transformByRows(const Matrix4& matrix) {
    const auto& m = matrix.m;
    const float px = x, py = y, pz = z;
    x = m[0][0] * px + m[0][1] * py + m[0][2] * pz + m[0][3];
    y = m[1][0] * px + m[1][1] * py + m[1][2] * pz + m[1][3];
    z = m[2][0] * px + m[2][1] * py + m[2][2] * pz + m[2][3];
    w = m[3][0] * px + m[3][1] * py + m[3][2] * pz + m[3][3];
}

inline void _Quadrupel::transformByColumns(const Matrix4& matrix) {
    const auto& m = matrix.m;
    const float px = x, py = y, pz = z;
    x = m[0][0] * px + m[1][0] * py + m[2][0] * pz + m[3][0];
    y = m[0][1] * px + m[1][1] * py + m[2][1] * pz + m[3][1];
    z = m[0][2] * px + m[1][2] * py + m[2][2] * pz + m[3][2];
    w = m[0][3] * px + m[1][3] * py + m[2][3] * pz + m[3][3];
}

inline Vector4& Vector4::operator*=(const Matrix4& m) {
    transformByRows(m);
    return *this;
}

inline Vector4& Vector4::operator^=(const Matrix4& m) {
    transformByColumns(m);
    return *this;
}

inline Point4& Point4::operator*=(const Matrix4& m) {
    transformByRows(m);
    return *this;
}

inline Point4& Point4::operator^=(const Matrix4& m) {
    transformByColumns(m);
    return *this;
}

inline Vector4 operator*(const Matrix4& m, Vector4 v) {
    return v *= m;
}
inline Vector4 operator^(const Matrix4& m, Vector4 v) {
    return v ^= m;
}
inline Point4 operator*(const Matrix4& m, Point4 p) {
    return p *= m;
}
inline Point4 operator^(const Matrix4& m, Point4 p) {
    return p ^= m;
}
