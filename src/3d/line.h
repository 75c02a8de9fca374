#pragma once

#include "3d/point.h"
#include "3d/vector.h"

#include <optional>
#include <ostream>

class Plane;

/// An infinite line: a base point and a direction of length 1.
class Line {
public:
    /// Through `x` along `xy`, which may have any length but 0.
    Line(const Point4& x, const Vector4& xy);
    /// Common to two planes; not finite when it runs parallel to the xy plane.
    Line(const Plane& x, const Plane& y);

    /// Exact, without tolerance. No point is on a line that has no extent along x.
    bool isOnLine(Point4 x) const;

    /// Exact equality of the directions: opposite ones are not parallel.
    bool isParallel(const Line& l) const { return ab == l.ab; }

    /// The distance from `point` to the line.
    float getDistance(const Point4& point) const;

    /// Where the line meets `p`, also behind the base point. Throws IntersectException when they
    /// are parallel.
    Point4 operator&(const Plane& p) const;
    /// Not available: always throws IntersectException.
    Point4 operator&(const Line& l) const;

private:
    friend class Plane;
    friend std::ostream& operator<<(std::ostream& out, const Line& l);

    /// Where the line meets `p`; empty when they are parallel.
    std::optional<Point4> meet(const Plane& p) const;

    Point4 a;
    Vector4 ab;
};

/// Writes "X = a + t ab".
std::ostream& operator<<(std::ostream& out, const Line& l);
