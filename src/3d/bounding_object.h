#pragma once

#include "3d/point.h"
#include "3d/vector.h"

class BoundingBox;
class BoundingSphere;
class Segment;

/// The kind of a bounding object: asked for before it is copied or tested as what it is.
enum BOUNDINGenum {
    BOUNDING_BOX = 0,
    BOUNDING_SPHERE = 1,
};

/// The volume that stands for a model in every collision, hit and picking test. A model has one in
/// its own coordinates; a game object moves a copy of it to its place in the world.
class _BoundingObject {
public:
    explicit _BoundingObject(BOUNDINGenum type) : type(type) {}
    _BoundingObject(const Point4& center, BOUNDINGenum type) : type(type), center(center) {}
    virtual ~_BoundingObject() = default;

    /// The radius of the sphere around the volume.
    virtual float getRadius() const = 0;

    virtual bool isIntersected(const Point4& p) const = 0;
    virtual bool isIntersected(const Segment& s) const = 0;
    virtual bool isIntersected(const BoundingSphere& b) const = 0;
    virtual bool isIntersected(const BoundingBox& b) const = 0;

    /// Draws the volume as wires, for debugging.
    virtual void drawDummy(float) const = 0;

    /// Moves the volume from model to world coordinates: turned to heading `dir` and up vector
    /// `up`, then displaced by `pos`.
    virtual void transform(const Point4& pos, const Vector4& dir, const Vector4& up) = 0;

    Point4 getCenter() const { return center; }
    virtual void setCenter(const Point4& c) { center = c; }

    /// The distance from the centre to `p`.
    float getDistance(const Point4& p) const { return Vector4(center, p).getLength(); }

    BOUNDINGenum getType() const { return type; }

protected:
    _BoundingObject(const _BoundingObject&) = default;
    _BoundingObject& operator=(const _BoundingObject&) = default;

private:
    BOUNDINGenum type;

protected:
    Point4 center;
};
