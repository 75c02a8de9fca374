#include "3d/plane.h"

#include "3d/3d_exception.h"
#include "3d/line.h"

Plane::Plane(Point4 aa, const Point4& bb, const Point4& cc)
    : Plane(aa.homogenize(), Vector4(aa, bb) ^ Vector4(aa, cc)) {}

Plane::Plane(const Point4& x, Vector4 n) {
    n.normalize();
    a = n.x;
    b = n.y;
    c = n.z;
    d = -(n.x * x.x + n.y * x.y + n.z * x.z);
}

Plane::Plane(float aa, float bb, float cc, float dd) : a(aa), b(bb), c(cc), d(dd) {
    normalize();
}

Plane& Plane::normalize() {
    const float length = getNormal().getLength();
    if (length == 1) return *this;
    a /= length;
    b /= length;
    c /= length;
    d /= length;
    return *this;
}

Point4 Plane::project(const Point4& p) const {
    return Line(p, getNormal()) & *this;
}

Point4 Plane::operator&(const Line& l) const {
    if (const auto point = l.meet(*this)) return *point;
    throw IntersectException("Plane::operator&: no intersection");
}

std::ostream& operator<<(std::ostream& out, const Plane& p) {
    return out << "(" << p.a << ")x + (" << p.b << ")y + (" << p.c << ")z + (" << p.d << ") = 0";
}
