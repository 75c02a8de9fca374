#include "3d/bounding_box.h"

#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "3d/segment.h"
#include "main/exception.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

namespace {

const BoundingBox& asBox(const _BoundingObject& b) {
    if (b.getType() == BOUNDING_BOX) return static_cast<const BoundingBox&>(b);
    throw Exception("BoundingBox::BoundingBox: argument 1 not a BoundingBox");
}

/// The sides of the half-axes on which the corners of the six faces lie, each face in a ring.
constexpr float face_corners[6][4][3] = {
    {{1, 1, 1}, {-1, 1, 1}, {-1, -1, 1}, {1, -1, 1}},
    {{1, 1, -1}, {1, -1, -1}, {-1, -1, -1}, {-1, 1, -1}},
    {{1, 1, 1}, {1, -1, 1}, {1, -1, -1}, {1, 1, -1}},
    {{-1, 1, 1}, {-1, 1, -1}, {-1, -1, -1}, {-1, -1, 1}},
    {{1, 1, 1}, {1, 1, -1}, {-1, 1, -1}, {-1, 1, 1}},
    {{1, -1, 1}, {-1, -1, 1}, {-1, -1, -1}, {1, -1, -1}},
};

}  // namespace

BoundingBox::BoundingBox(const Point4& c, const Vector4& vvx, const Vector4& vvy,
                         const Vector4& vvz)
    : _BoundingObject(c, BOUNDING_BOX), vx(vvx), vy(vvy), vz(vvz) {
    planes_stale = true;
}

BoundingBox::BoundingBox(const _BoundingObject& b) : BoundingBox(asBox(b)) {}

void BoundingBox::setCenter(const Point4& c) {
    _BoundingObject::setCenter(c);
    planes_stale = true;
}

bool BoundingBox::isIntersected(const Point4& p) const {
    if (getDistance(p) > getRadius()) return false;
    if (planes_stale) buildPlanes();
    return xy_front.isInside(p) && xy_back.isInside(p) && yz_left.isInside(p) &&
           yz_right.isInside(p) && xz_top.isInside(p) && xz_bottom.isInside(p);
}

bool BoundingBox::isIntersected(const Segment& s) const {
    return isIntersected(s.getStartPoint()) || isIntersected(s.getEndPoint());
}

bool BoundingBox::isIntersected(const BoundingSphere& b) const {
    if (getDistance(b.getCenter()) > getRadius() + b.getRadius()) return false;
    for (const float side_x : {1.f, -1.f}) {
        for (const float side_y : {1.f, -1.f}) {
            for (const float side_z : {1.f, -1.f}) {
                if (b.isIntersected(corner(side_x, side_y, side_z))) return true;
            }
        }
    }
    return isIntersected(b.getCenter());
}

bool BoundingBox::isIntersected(const BoundingBox& b) const {
    const Vector4 distance(center, b.center);
    if (distance.getLength() > getRadius() + b.getRadius()) return false;

    for (const Vector4* axis : {&vx, &vy, &vz}) {
        const float separation = std::fabs((*axis * 2) * distance);
        float reach = 2 * axis->getLength();
        for (const Vector4* other : {&b.vx, &b.vy, &b.vz}) {
            const float dot = axis->x * other->x + axis->y * other->y + axis->z * other->z;
            reach += std::fabs(2 * other->getLength() * 4 * dot);
        }
        if (reach >= separation) return true;
    }
    return false;
}

void BoundingBox::drawDummy(float) const {
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glPushAttrib(GL_POLYGON_BIT);
    glPolygonMode(GL_FRONT, GL_LINE);
    glPolygonMode(GL_BACK, GL_LINE);
    glBegin(GL_QUADS);
    for (const auto& face : face_corners) {
        for (const auto& [side_x, side_y, side_z] : face) corner(side_x, side_y, side_z).draw();
    }
    glEnd();
    glPopAttrib();
}

void BoundingBox::transform(const Point4& pos, const Vector4& dir, const Vector4& up) {
    const Matrix4 turn(Point4(), Vector4(dir).normalize(), Vector4(up).normalize());
    center ^= turn;
    vx ^= turn;
    vy ^= turn;
    vz ^= turn;
    center += Vector4(pos);
    planes_stale = true;
}

BoundingBox& BoundingBox::operator*=(const Matrix4& m) {
    vx *= m;
    vy *= m;
    vz *= m;
    center *= m;
    planes_stale = true;
    return *this;
}

BoundingBox& BoundingBox::operator+=(const BoundingBox& b) {
    const Point4 high1 = center + extent(), high2 = b.center + b.extent();
    const Point4 low1 = center - extent(), low2 = b.center - b.extent();
    const Point4 high(std::max(high1.x, high2.x), std::max(high1.y, high2.y),
                      std::max(high1.z, high2.z), 1);
    const Point4 low(std::min(low1.x, low2.x), std::min(low1.y, low2.y), std::min(low1.z, low2.z),
                     1);
    center = Point4(high, low);
    vx = Vector4(high.x - center.x, 0, 0, 1);
    vy = Vector4(0, high.y - center.y, 0, 1);
    vz = Vector4(0, 0, high.z - center.z, 1);
    planes_stale = true;
    return *this;
}

Vector4 BoundingBox::extent() const {
    return {std::fabs(vx.x) + std::fabs(vy.x) + std::fabs(vz.x),
            std::fabs(vx.y) + std::fabs(vy.y) + std::fabs(vz.y),
            std::fabs(vx.z) + std::fabs(vy.z) + std::fabs(vz.z), 1};
}

void BoundingBox::buildPlanes() const {
    planes_stale = false;
    xy_front = Plane(center + vz, Vector4() - vz);
    xy_back = Plane(center - vz, vz);
    yz_left = Plane(center - vx, vx);
    yz_right = Plane(center + vx, Vector4() - vx);
    xz_top = Plane(center + vy, Vector4() - vy);
    xz_bottom = Plane(center - vy, vy);
}

std::ostream& operator<<(std::ostream& out, const BoundingBox& b) {
    return out << "* center: " << b.center << std::endl
               << "* vx: " << b.vx << std::endl
               << "* vy: " << b.vy << std::endl
               << "* vz: " << b.vz << std::endl;
}
