#include "3d/point.h"

#include "3d/3d_exception.h"
#include "3d/color_rgb.h"
#include "3d/line.h"
#include "3d/plane.h"

#include <GL/gl.h>

namespace {

/// The determinant of the matrix with these three columns.
float determinant(const Vector4& a, const Vector4& b, const Vector4& c) {
    return a * (b ^ c);
}

}  // namespace

Point4::Point4(const Point4& p1, const Point4& p2) : Point4(p1) {
    add(p2, 1);
    divideBy(2);
}

Point4::Point4(const Plane& p, const Line& l) : Point4(l & p) {}

Point4::Point4(const Plane& e1, const Plane& e2, const Plane& e3) {
    const Vector4 a(e1.a, e2.a, e3.a, 1);
    const Vector4 b(e1.b, e2.b, e3.b, 1);
    const Vector4 c(e1.c, e2.c, e3.c, 1);
    const Vector4 right(-e1.d, -e2.d, -e3.d, 1);

    const float whole = determinant(a, b, c);
    if (whole == 0) throw IntersectException("Point4::Point4: no intersection");
    x = determinant(right, b, c) / whole;
    y = determinant(a, right, c) / whole;
    z = determinant(a, b, right) / whole;
}

void Point4::draw() const {
    glVertex4f(x, y, z, w);
}

void Point4::drawDummy(const ColorRGB& c, float f) const {
    c.activate();
    glPointSize(f > 0 ? f : 1);
    glBegin(GL_POINTS);
    draw();
    glEnd();
}
