#pragma once

#include "3d/bounding_object.h"
#include "3d/plane.h"

#include <ostream>

class Matrix4;

/// An oriented box: a centre and the three half-axes that lead from it to the middle of the faces.
/// The bounds of ships, their parts and their shots; it follows their orientation.
class BoundingBox : public _BoundingObject {
public:
    /// A box without size at the origin.
    BoundingBox() : _BoundingObject(BOUNDING_BOX) {}
    /// A half-axis without length makes a box that no point is in.
    BoundingBox(const Point4& c, const Vector4& vvx, const Vector4& vvy, const Vector4& vvz);
    /// Copies what is known to be a box. Throws Exception for any other kind.
    explicit BoundingBox(const _BoundingObject& b);

    void setCenter(const Point4& c) override;

    /// Half the size along each of the box's own axes.
    float getVX() const { return vx.getLength(); }
    float getVY() const { return vy.getLength(); }
    float getVZ() const { return vz.getLength(); }

    /// Half the diagonal.
    float getRadius() const override { return (vx + (vy + vz)).getLength(); }

    /// A point on a face is inside.
    bool isIntersected(const Point4& p) const override;
    /// True when an end lies inside: a segment that passes right through does not count.
    bool isIntersected(const Segment& s) const override;
    /// True when a corner lies in the sphere, or the sphere's centre in the box.
    bool isIntersected(const BoundingSphere& b) const override;
    /// Ship against ship: the enclosing spheres must meet, and the boxes must come near each other
    /// along one of this box's axes. Generous, and not symmetrical.
    bool isIntersected(const BoundingBox& b) const override;

    void drawDummy(float) const override;

    void transform(const Point4& pos, const Vector4& dir, const Vector4& up) override;

    /// Transforms centre and half-axes, reading the matrix by rows.
    BoundingBox& operator*=(const Matrix4& m);

    /// Grows to hold `b` as well. The result is aligned with the world's axes.
    BoundingBox& operator+=(const BoundingBox& b);

private:
    friend class Frustum;
    friend std::ostream& operator<<(std::ostream& out, const BoundingBox& b);

    /// The corner on the given sides, each of them 1 or -1, of the three half-axes.
    Point4 corner(float side_x, float side_y, float side_z) const {
        return center + (vx * side_x + vy * side_y + vz * side_z);
    }

    /// How far the box reaches from its centre along each of the world's axes.
    Vector4 extent() const;

    /// Raises the faces on the present centre and half-axes.
    void buildPlanes() const;

    Vector4 vx, vy, vz;
    mutable Plane xy_front, xy_back, yz_left, yz_right, xz_top, xz_bottom;
    /// The box has moved since the planes were built. Most boxes move on before a point is tested.
    mutable bool planes_stale = false;
};

inline BoundingBox operator*(BoundingBox b, const Matrix4& m) {
    return b *= m;
}
inline BoundingBox operator+(BoundingBox a, const BoundingBox& b) {
    return a += b;
}

/// Four lines: centre and half-axes.
std::ostream& operator<<(std::ostream& out, const BoundingBox& b);
