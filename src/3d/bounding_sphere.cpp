#include "3d/bounding_sphere.h"

#include "3d/bounding_box.h"
#include "3d/glut.h"
#include "3d/line.h"
#include "3d/matrix.h"
#include "3d/plane.h"
#include "3d/segment.h"
#include "main/exception.h"

#include <algorithm>

namespace {

const BoundingSphere& asSphere(const _BoundingObject& b) {
    if (b.getType() == BOUNDING_SPHERE) return static_cast<const BoundingSphere&>(b);
    throw Exception("BoundingSphere::BoundingSphere: argument 1 not a BoundingSphere");
}

bool isBetween(float value, float end1, float end2) {
    return std::min(end1, end2) <= value && value <= std::max(end1, end2);
}

}  // namespace

BoundingSphere::BoundingSphere(const _BoundingObject& b) : BoundingSphere(asSphere(b)) {}

bool BoundingSphere::isIntersected(const Point4& start, const Point4& end) const {
    if (isIntersected(start) || isIntersected(end)) return true;

    const Vector4 way(start, end);
    const float along_center = way.x * center.x + way.y * center.y + way.z * center.z;
    const float along_start = way.x * start.x + way.y * start.y + way.z * start.z;
    const Point4 nearest = start + way * ((along_center - along_start) / (way * way));
    if (!isIntersected(nearest)) return false;

    const float length = way.getLength();
    return Vector4(start, nearest).getLength() < length &&
           Vector4(end, nearest).getLength() < length;
}

bool BoundingSphere::isIntersected(const Segment& s) const {
    const Point4 start = s.getStartPoint();
    const Point4 end = s.getEndPoint();
    const Vector4 way(start, end);
    const Point4 nearest = Line(start, way) & Plane(center, way);
    return isIntersected(nearest) && isBetween(nearest.x, start.x, end.x) &&
           isBetween(nearest.y, start.y, end.y) && isBetween(nearest.z, start.z, end.z);
}

bool BoundingSphere::isIntersected(const Plane& p) const {
    const float value = p.a * center.x + p.b * center.y + p.c * center.z + p.d;
    return value / p.getNormal().getLength() < radius;
}

bool BoundingSphere::isIntersected(const BoundingBox& b) const {
    return b.isIntersected(*this);
}

void BoundingSphere::drawDummy(float) const {
    constexpr int slices = 10;
    constexpr int stacks = 10;
    const Point4 place = Point4(center).homogenize();

    initGlut();
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glPushMatrix();
    glTranslatef(place.x, place.y, place.z);
    glutWireSphere(radius, slices, stacks);
    glPopMatrix();
}

void BoundingSphere::transform(const Point4& pos, const Vector4&, const Vector4&) {
    center += Vector4(pos);
}

BoundingSphere& BoundingSphere::operator*=(const Matrix4& m) {
    center *= m;
    return *this;
}

std::ostream& operator<<(std::ostream& out, const BoundingSphere& b) {
    return out << "* center: " << b.center << std::endl << "* radius: " << b.radius;
}
