#pragma once

#include <cmath>
#include <ostream>

/// Two plain coordinates: texture coordinates and projections onto a plane.
class Vector2 {
public:
    Vector2() = default;
    Vector2(float vx, float vy) : x(vx), y(vy) {}
    /// Copies two floats; `v` must not be null.
    explicit Vector2(const float* v) : x(v[0]), y(v[1]) {}
    /// The displacement from `v1` to `v2`.
    Vector2(const Vector2& v1, const Vector2& v2) : x(v2.x - v1.x), y(v2.y - v1.y) {}

    Vector2(const Vector2&) = default;
    Vector2& operator=(const Vector2&) = default;
    virtual ~Vector2() = default;

    virtual float getLength() const { return std::sqrt(x * x + y * y); }

    /// Scales to length 1. A vector without length becomes NaN.
    virtual Vector2& normalize() { return *this /= getLength(); }

    virtual Vector2& operator+=(const Vector2& v) {
        x += v.x;
        y += v.y;
        return *this;
    }
    virtual Vector2& operator+=(float f) {
        x += f;
        y += f;
        return *this;
    }
    virtual Vector2& operator+=(int i) { return *this += static_cast<float>(i); }
    virtual Vector2& operator-=(const Vector2& v) {
        x -= v.x;
        y -= v.y;
        return *this;
    }
    virtual Vector2& operator-=(float f) { return *this += -f; }
    virtual Vector2& operator-=(int i) { return *this -= static_cast<float>(i); }
    virtual Vector2& operator*=(float f) {
        x *= f;
        y *= f;
        return *this;
    }
    virtual Vector2& operator*=(int i) { return *this *= static_cast<float>(i); }
    virtual Vector2& operator/=(float f) {
        x /= f;
        y /= f;
        return *this;
    }
    virtual Vector2& operator/=(int i) { return *this /= static_cast<float>(i); }

    /// Exact equality of both coordinates.
    bool operator==(const Vector2& v) const { return x == v.x && y == v.y; }

    float x = 0;
    float y = 0;
};

inline Vector2 operator+(Vector2 a, const Vector2& b) {
    return a += b;
}
inline Vector2 operator+(Vector2 v, float f) {
    return v += f;
}
inline Vector2 operator+(Vector2 v, int i) {
    return v += i;
}
inline Vector2 operator-(Vector2 a, const Vector2& b) {
    return a -= b;
}
inline Vector2 operator-(Vector2 v, float f) {
    return v -= f;
}
inline Vector2 operator-(Vector2 v, int i) {
    return v -= i;
}
inline Vector2 operator*(Vector2 v, float f) {
    return v *= f;
}
inline Vector2 operator*(Vector2 v, int i) {
    return v *= i;
}
inline Vector2 operator/(Vector2 v, float f) {
    return v /= f;
}
inline Vector2 operator/(Vector2 v, int i) {
    return v /= i;
}

/// The dot product.
inline float operator*(const Vector2& a, const Vector2& b) {
    return a.x * b.x + a.y * b.y;
}

/// Writes "(x, y)".
inline std::ostream& operator<<(std::ostream& out, const Vector2& v) {
    return out << "(" << v.x << ", " << v.y << ")";
}
