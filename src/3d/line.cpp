#include "3d/line.h"

#include "3d/3d_exception.h"
#include "3d/plane.h"

Line::Line(const Point4& x, const Vector4& xy) : a(x), ab(Vector4(xy).normalize()) {}

// The base point is the one with z = 0, the direction the one that gains 1 in z.
Line::Line(const Plane& x, const Plane& y) {
    const float p = x.b * y.a - y.b * x.a;
    const float q = x.a * y.b - y.a * x.b;
    a = Point4((x.d * y.b - x.b * y.d) / p, (y.a * x.d - x.a * y.d) / q, 0, 1);
    ab = Vector4((x.c * y.b - x.b * y.c) / p, (y.a * x.c - x.a * y.c) / q, 1, 1).normalize();
}

bool Line::isOnLine(Point4 x) const {
    if (ab.x == 0) return false;
    x.homogenize();
    const float k = (x.x - a.x) / ab.x;
    return x.y == k * ab.y + a.y && x.z == k * ab.z + a.z;
}

float Line::getDistance(const Point4& point) const {
    const float d = (Vector4() - ab) * Vector4(point);
    const Point4 foot = *this & Plane(ab.x, ab.y, ab.z, d);
    return Vector4(foot, point).getLength();
}

Point4 Line::operator&(const Plane& p) const {
    if (const auto point = meet(p)) return *point;
    throw IntersectException("Line::operator&: no intersection");
}

Point4 Line::operator&(const Line&) const {
    throw IntersectException("Line::operator&(Line): not yet implemented");
}

std::optional<Point4> Line::meet(const Plane& p) const {
    const float approach = p.a * ab.x + p.b * ab.y + p.c * ab.z;
    if (approach == 0) return std::nullopt;
    const float mu = -(p.a * a.x + p.b * a.y + p.c * a.z + p.d) / approach;
    return Point4(a.x + mu * ab.x, a.y + mu * ab.y, a.z + mu * ab.z, 1);
}

std::ostream& operator<<(std::ostream& out, const Line& l) {
    return out << "X = " << l.a << " + t " << l.ab;
}
