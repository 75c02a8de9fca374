#include "3d/camera.h"

#include "3d/util3d.h"

namespace {

constexpr float field_of_view = 60;  // degrees, vertical
constexpr float aspect_unknown = -1;
constexpr float near_distance = 1;
constexpr float menu_far_distance = 500;
constexpr float far_distance = 1000;

}  // namespace

Camera::Camera() : Camera({2, 5, 10, 1}, {0, 1, 0, 1}, Point4(), menu_far_distance) {}

Camera::Camera(const Point4& p) : Camera(p, {0, 1, 0, 1}) {}

Camera::Camera(const Point4& p, const Vector4& u) : Camera(p, u, Point4()) {}

Camera::Camera(const Point4& p, const Vector4& u, const Point4& t)
    : Camera(p, u, t, far_distance) {}

Camera::Camera(const Point4& p, const Vector4& u, const Point4& t, float far_limit)
    : _CameraInterface(field_of_view, aspect_unknown, near_distance, far_limit),
      position(p),
      target(t),
      up(u) {}

void Camera::rotateX(float phi) {
    position = target + Vector4(target, position).rotateX(util3d::deg2rad(phi));
}

void Camera::rotateY(float phi) {
    position = target + Vector4(target, position).rotateY(util3d::deg2rad(phi));
}

void Camera::rotateZ(float phi) {
    position = target + Vector4(target, position).rotateZ(util3d::deg2rad(phi));
}

void Camera::activate() const {
    lookAt(position, target, up);
}

std::ostream& operator<<(std::ostream& out, const Camera& camera) {
    return out << "* position: " << camera.position << "\n* target: " << camera.target
               << "\n* up: " << camera.up << "\n* fovy: " << camera.getFovy()
               << ", aspect: " << camera.getAspect() << ", p_near clipping: " << camera.getNear()
               << ", p_far clipping: " << camera.getFar();
}
