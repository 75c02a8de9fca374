#pragma once

#include "3d/point.h"
#include "3d/vector.h"

#include <ostream>

class Line;

/// The points with a*x + b*y + c*z + d = 0. The side that the normal (a, b, c) points to, the plane
/// itself included, is its inside. A normal without length makes a plane of NaN, which has neither
/// inside nor outside.
class Plane {
public:
    /// All coefficients 0.
    Plane() = default;
    /// Through three points, counter-clockwise seen from the inside.
    Plane(Point4 aa, const Point4& bb, const Point4& cc);
    /// Through `x`, with the normal `n` of any length.
    Plane(const Point4& x, Vector4 n);
    /// From the four coefficients, scaled to a normal of length 1.
    Plane(float aa, float bb, float cc, float dd);

    /// Scales to a normal of length 1.
    Plane& normalize();

    Vector4 getNormal() const { return {a, b, c, 1}; }

    /// The foot of the perpendicular from `p`.
    Point4 project(const Point4& p) const;

    /// The distance of `p`, above 0 on the inside.
    float getDistance(Point4 p) const {
        p.homogenize();
        return a * p.x + b * p.y + c * p.z + d;
    }
    bool isInside(const Point4& p) const { return getDistance(p) >= 0; }
    bool isOutside(const Point4& p) const { return getDistance(p) < 0; }
    /// Exact, without tolerance.
    bool isOnPlane(const Point4& p) const { return getDistance(p) == 0; }

    /// Where `l` meets the plane. Throws IntersectException when they are parallel.
    Point4 operator&(const Line& l) const;

    float a = 0;
    float b = 0;
    float c = 0;
    float d = 0;
};

/// Writes "(a)x + (b)y + (c)z + (d) = 0".
std::ostream& operator<<(std::ostream& out, const Plane& p);
