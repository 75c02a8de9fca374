#pragma once

#include "3d/point.h"
#include "3d/vector.h"

#include <ostream>

/// The straight way from one point to another.
class Segment {
public:
    Segment(const Point4& s, const Point4& e) : start(s), end(e) {}
    Segment(const Point4& s, const Vector4& v) : start(s), end(s + v) {}

    Point4 getStartPoint() const { return start; }
    Point4 getEndPoint() const { return end; }
    Point4 getMidPoint() const { return {start, end}; }
    float getLength() const { return Vector4(start, end).getLength(); }

    /// Puts both ends at `f` quarters of the present length from the midpoint: 2 keeps the length.
    void scale(float f);

    /// Slides the segment along itself by `f`.
    void move(float f);

private:
    friend std::ostream& operator<<(std::ostream& out, const Segment& s);

    Point4 start;
    Point4 end;
};

/// Writes "start --> end".
std::ostream& operator<<(std::ostream& out, const Segment& s);
