#include "3d/frustum.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"

#include <algorithm>

void Frustum::update() {
    const Matrix4 clip(MATRIX_GL_FRUSTUM);
    front = clip.getFrontPlane();
    back = clip.getBackPlane();
    top = clip.getTopPlane();
    bottom = clip.getBottomPlane();
    left = clip.getLeftPlane();
    right = clip.getRightPlane();
}

bool Frustum::isInside(const Point4& p) const {
    const auto planes = {&top, &bottom, &front, &back, &left, &right};
    return std::ranges::all_of(planes, [&](const Plane* plane) { return plane->isInside(p); });
}

bool Frustum::isVisible(const BoundingBox& bb) const {
    for (const float x : {-1.f, 1.f})
        for (const float y : {-1.f, 1.f})
            for (const float z : {-1.f, 1.f})
                if (isInside(bb.center + (bb.vx * x + bb.vy * y + bb.vz * z))) return true;
    return false;
}

bool Frustum::isVisible(const BoundingSphere& bs) const {
    const float radius = bs.getRadius();
    const auto planes = {&front, &back, &left, &right, &top, &bottom};
    return std::ranges::none_of(
        planes, [&](const Plane* plane) { return plane->getDistance(bs.getCenter()) <= -radius; });
}

std::ostream& operator<<(std::ostream& out, const Frustum& frustum) {
    return out << "* front plane: " << frustum.front << "\n* back plane: " << frustum.back
               << "\n* top plane: " << frustum.top << "\n* bottom plane: " << frustum.bottom
               << "\n* left plane: " << frustum.left << "\n* right plane: " << frustum.right;
}
