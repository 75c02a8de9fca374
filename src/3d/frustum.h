#pragma once

#include "3d/plane.h"
#include "3d/point.h"

#include <ostream>

class BoundingBox;
class BoundingSphere;

/// What a camera sees: the space between six planes that face inwards. Taken from OpenGL at each
/// activation of the camera that holds it; the galaxy asks it which objects to draw.
class Frustum {
public:
    /// Reads the planes from OpenGL's present view and projection.
    void update();

    /// True for a point within all planes; one that lies on a plane is inside.
    bool isInside(const Point4& p) const;
    /// True if a corner of the box is inside. A box that reaches into view with its faces only
    /// counts as invisible.
    bool isVisible(const BoundingBox& bb) const;
    /// True unless the sphere lies outside of one plane or just touches it from there.
    bool isVisible(const BoundingSphere& bs) const;

    friend std::ostream& operator<<(std::ostream& out, const Frustum& frustum);

private:
    Plane front;
    Plane back;
    Plane top;
    Plane bottom;
    Plane left;
    Plane right;
};

/// The six planes, one on each line.
std::ostream& operator<<(std::ostream& out, const Frustum& frustum);
