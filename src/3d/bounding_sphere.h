#pragma once

#include "3d/bounding_object.h"

#include <ostream>

class Matrix4;
class Plane;

/// A sphere: the bounds of planets and shields, and of anything that is picked along a line.
class BoundingSphere : public _BoundingObject {
public:
    BoundingSphere(const Point4& center, float radius)
        : _BoundingObject(center, BOUNDING_SPHERE), radius(radius) {}
    /// Copies what is known to be a sphere. Throws Exception for any other kind.
    explicit BoundingSphere(const _BoundingObject& b);

    float getRadius() const override { return radius; }

    /// A point on the surface is inside.
    bool isIntersected(const Point4& p) const override { return getDistance(p) <= radius; }
    /// Picking along a line: an end inside, or the nearest point of the line between the ends.
    bool isIntersected(const Point4& start, const Point4& end) const;
    /// The nearest point of the segment's line must lie between the ends and inside; an end inside
    /// does not count by itself.
    bool isIntersected(const Segment& s) const override;
    /// Signed: a sphere that lies wholly outside of the plane intersects, too.
    bool isIntersected(const Plane& p) const;
    /// Spheres that just touch do not intersect.
    bool isIntersected(const BoundingSphere& b) const override {
        return getDistance(b.center) < radius + b.radius;
    }
    /// The box's own test, from the other side.
    bool isIntersected(const BoundingBox& b) const override;

    void drawDummy(float) const override;

    /// Displaces the centre by `pos`; a sphere does not turn.
    void transform(const Point4& pos, const Vector4& dir, const Vector4& up) override;

    /// Transforms the centre, reading the matrix by rows; the radius stays.
    BoundingSphere& operator*=(const Matrix4& m);

private:
    friend std::ostream& operator<<(std::ostream& out, const BoundingSphere& b);

    float radius;
};

inline BoundingSphere operator*(BoundingSphere b, const Matrix4& m) {
    return b *= m;
}

/// Two lines: centre and radius, the last one without a line end.
std::ostream& operator<<(std::ostream& out, const BoundingSphere& b);
