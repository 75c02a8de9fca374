#pragma once

#include <cmath>
#include <ostream>

class ColorRGB;
class Matrix4;

/// Four homogeneous coordinates: what directions (Vector4) and places (Point4) have in common.
/// A `w` of 1 is the ordinary case, also for a direction; 0 counts as homogeneous, too. Any other
/// `w` is a scale that homogenizing divides out.
class _Quadrupel {
public:
    _Quadrupel() = default;
    _Quadrupel(float vx, float vy, float vz, float vw) : x(vx), y(vy), z(vz), w(vw) {}
    /// Copies four floats. Throws QuadrupelException for a null pointer.
    explicit _Quadrupel(const float* v);

    /// Writes the four floats to `v`. Throws Exception for a null pointer.
    void getFloat4p(float* v) const;

    /// Sets all four coordinates to 0, `w` included.
    void reset() { x = y = z = w = 0; }

    /// Exact equality of all four coordinates.
    bool operator==(const _Quadrupel& q) const {
        return x == q.x && y == q.y && z == q.z && w == q.w;
    }

    /// Makes the value visible for debugging, `f` being its size.
    virtual void drawDummy(const ColorRGB& c, float f) const = 0;

    float x = 0;
    float y = 0;
    float z = 0;
    float w = 1;

protected:
    // Values are copied and never owned through their base.
    ~_Quadrupel() = default;
    _Quadrupel(const _Quadrupel&) = default;
    _Quadrupel& operator=(const _Quadrupel&) = default;

    bool isHomogeneous() const { return w == 0 || w == 1; }

    void divideOutW() {
        if (isHomogeneous()) return;
        divideBy(w);
        w = 1;
    }

    /// In double, so that very short and very long vectors keep their length.
    float length() const {
        const double dx = x, dy = y, dz = z;
        return static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    }

    void scaleToUnit() {
        divideOutW();
        divideBy(length());
    }

    void multiplyBy(float f) {
        x *= f;
        y *= f;
        z *= f;
    }

    void divideBy(float f) {
        x /= f;
        y /= f;
        z /= f;
    }

    /// Adds `sign` times the homogenized `q` to the homogenized value; `q` may be the value itself.
    void add(const _Quadrupel& q, float sign) {
        divideOutW();
        if (q.isHomogeneous()) {
            x += sign * q.x;
            y += sign * q.y;
            z += sign * q.z;
        } else {
            x += sign * q.x / q.w;
            y += sign * q.y / q.w;
            z += sign * q.z / q.w;
        }
    }

    // The two transforms, defined with the matrix. Both take the present `w` as 1.
    inline void transformByRows(const Matrix4& m);
    inline void transformByColumns(const Matrix4& m);
};

/// Writes "(x, y, z, w)".
std::ostream& operator<<(std::ostream& out, const _Quadrupel& q);
