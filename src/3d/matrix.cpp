#include "3d/matrix.h"

#include "3d/plane.h"
#include "main/log_factory.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <iterator>
#include <utility>

Matrix4::Matrix4(MATRIXenum mode) {
    reset();
    switch (mode) {
        case MATRIX_UNIT:
            break;
        case MATRIX_GL_PROJECTION:
            glGetFloatv(GL_PROJECTION_MATRIX, m[0]);
            break;
        case MATRIX_GL_MODELVIEW:
            glGetFloatv(GL_MODELVIEW_MATRIX, m[0]);
            break;
        case MATRIX_GL_FRUSTUM:
            *this = Matrix4(MATRIX_GL_MODELVIEW) * Matrix4(MATRIX_GL_PROJECTION);
            break;
    }
}

Matrix4::Matrix4(const Vector4& a, const Vector4& b, const Vector4& c)
    : m{{a.x, b.x, c.x, 0}, {a.y, b.y, c.y, 0}, {a.z, b.z, c.z, 0}, {0, 0, 0, 1}} {}

Matrix4::Matrix4(const Point4& p, const Vector4& o, const Vector4& u)
    : m{{0, 0, 0, 0}, {u.x, u.y, u.z, 0}, {o.x, o.y, o.z, 0}, {p.x, p.y, p.z, 1}} {
    const Vector4 side = u ^ o;
    m[0][0] = side.x;
    m[0][1] = side.y;
    m[0][2] = side.z;
}

Matrix4::Matrix4(const Point4& l_pos, const Vector4& n) {
    float plane[4];
    float light[4];
    n.getFloat4p(plane);
    l_pos.getFloat4p(light);

    float dot = 0;
    for (int i = 0; i < 4; ++i) dot += plane[i] * light[i];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) m[i][j] = (i == j ? dot : 0) - plane[i] * light[j];
    }
}

Matrix4& Matrix4::reset() {
    return scale(1, 1, 1);
}

Matrix4& Matrix4::translate(const Vector4& v) {
    m[0][3] = v.x;
    m[1][3] = v.y;
    m[2][3] = v.z;
    return *this;
}

Matrix4& Matrix4::rotateX(float phi) {
    reset();
    m[1][1] = m[2][2] = std::cos(phi);
    m[2][1] = std::sin(phi);
    m[1][2] = -m[2][1];
    return *this;
}

Matrix4& Matrix4::rotateY(float phi) {
    reset();
    m[0][0] = m[2][2] = std::cos(phi);
    m[0][2] = std::sin(phi);
    m[2][0] = -m[0][2];
    return *this;
}

Matrix4& Matrix4::rotateZ(float phi) {
    reset();
    m[0][0] = m[1][1] = std::cos(phi);
    m[1][0] = std::sin(phi);
    m[0][1] = -m[1][0];
    return *this;
}

Matrix4& Matrix4::rotate(float phi_x, float phi_y, float phi_z) {
    Matrix4 turn(MATRIX_UNIT);
    rotateX(phi_x);
    *this *= turn.rotateY(phi_y);
    return *this *= turn.rotateZ(phi_z);
}

Matrix4& Matrix4::scale(float s_x, float s_y, float s_z) {
    for (auto& row : m) std::fill(std::begin(row), std::end(row), 0.f);
    m[0][0] = s_x;
    m[1][1] = s_y;
    m[2][2] = s_z;
    m[3][3] = 1;
    return *this;
}

// Gauss-Jordan elimination in place with full pivoting: whatever stands largest comes next, so that
// frames with wide spans of scale and distance keep their digits.
Matrix4& Matrix4::invert() {
    Matrix4 work = *this;
    bool done[4] = {};
    int pivot_rows[4];
    int pivot_columns[4];

    for (int step = 0; step < 4; ++step) {
        int row = -1;
        int column = -1;
        float largest = 0;
        for (int i = 0; i < 4; ++i) {
            if (done[i]) continue;
            for (int k = 0; k < 4; ++k) {
                if (done[k] || !(std::fabs(work.m[i][k]) >= largest)) continue;
                largest = std::fabs(work.m[i][k]);
                row = i;
                column = k;
            }
        }
        if (row < 0) {  // nothing but NaN is left
            logLine(std::cerr, "ERROR (3D): ", "Matrix4::invert: invalid pivot value (> 1)");
            return *this;
        }
        done[column] = true;
        pivot_rows[step] = row;
        pivot_columns[step] = column;
        if (row != column) std::swap(work.m[row], work.m[column]);

        float(&pivot)[4] = work.m[column];
        if (pivot[column] == 0) {
            logLine(std::cerr, "ERROR (3D): ", "Matrix4::invert: divide by zero");
            return *this;
        }
        const float inverse = 1 / pivot[column];
        pivot[column] = 1;
        for (float& element : pivot) element *= inverse;

        for (int i = 0; i < 4; ++i) {
            if (i == column) continue;
            const float factor = work.m[i][column];
            work.m[i][column] = 0;
            for (int k = 0; k < 4; ++k) work.m[i][k] -= factor * pivot[k];
        }
    }

    // The rows that changed places come back as columns.
    for (int step = 3; step >= 0; --step) {
        if (pivot_rows[step] == pivot_columns[step]) continue;
        for (auto& row : work.m) std::swap(row[pivot_rows[step]], row[pivot_columns[step]]);
    }
    return *this = work;
}

Plane Matrix4::getLeftPlane() const {
    return clippingPlane(0, 1);
}
Plane Matrix4::getRightPlane() const {
    return clippingPlane(0, -1);
}
Plane Matrix4::getBottomPlane() const {
    return clippingPlane(1, 1);
}
Plane Matrix4::getTopPlane() const {
    return clippingPlane(1, -1);
}
Plane Matrix4::getFrontPlane() const {
    return clippingPlane(2, 1);
}
Plane Matrix4::getBackPlane() const {
    return clippingPlane(2, -1);
}

// A point is inside when -w <= x, y, z <= w holds for its clip coordinates.
Plane Matrix4::clippingPlane(int axis, float side) const {
    return {m[0][3] + side * m[0][axis], m[1][3] + side * m[1][axis], m[2][3] + side * m[2][axis],
            m[3][3] + side * m[3][axis]};
}

Matrix4& Matrix4::operator+=(const Matrix4& b) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) m[i][j] += b.m[i][j];
    }
    return *this;
}

Matrix4& Matrix4::operator-=(const Matrix4& b) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) m[i][j] -= b.m[i][j];
    }
    return *this;
}

Matrix4& Matrix4::operator*=(const Matrix4& b) {
    const Matrix4 a = *this;
    const Matrix4 right = b;  // may be this matrix itself
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            m[i][j] = a.m[i][0] * right.m[0][j] + a.m[i][1] * right.m[1][j] +
                      a.m[i][2] * right.m[2][j] + a.m[i][3] * right.m[3][j];
        }
    }
    return *this;
}

Matrix4& Matrix4::operator^=(const Matrix4& b) {
    Matrix4 transposed = *this;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < i; ++j) std::swap(transposed.m[i][j], transposed.m[j][i]);
    }
    return *this = transposed *= b;
}

std::ostream& operator<<(std::ostream& out, const Matrix4& matrix) {
    for (const auto& row : matrix.m) {
        out << "[ ";
        for (float element : row) out << element << " ";
        out << "]" << std::endl;
    }
    return out;
}
