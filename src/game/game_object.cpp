#include "game/game_object.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "game/galaxy.h"
#include "game/game_camera.h"
#include "main/log_factory.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

constexpr std::size_t camera_positions = 4;

/// Some direction at right angles to `v`: the world axis that leads away from it most decides.
Vector4 perpendicular(const Vector4& v) {
    const float x = std::fabs(v.x), y = std::fabs(v.y), z = std::fabs(v.z);
    if (x <= y && x <= z) return v ^ Vector4(1, 0, 0, 1);
    return v ^ (y <= z ? Vector4(0, 1, 0, 1) : Vector4(0, 0, 1, 1));
}

/// Makes `copy` equal to `original`, whose kind is known. Takes memory only for another kind.
template <class Bounds>
void assign(const _BoundingObject& original, std::unique_ptr<_BoundingObject>& copy) {
    const auto& bounds = static_cast<const Bounds&>(original);
    if (copy && copy->getType() == original.getType())
        static_cast<Bounds&>(*copy) = bounds;
    else
        copy = std::make_unique<Bounds>(bounds);
}

}  // namespace

_GameObject::_GameObject(int i, GAMEOBJenum t) : id(i), type(t) {}

_GameObject::_GameObject(const _GameObject& other)
    : _Drawable(other),
      id(other.id),
      name(other.name),
      type(other.type),
      position(other.position),
      orientation(other.orientation),
      up(other.up) {}

_GameObject::~_GameObject() {
    logLine(std::cout, "!! GAME(5): ", "removing ", name);
    if (galaxy) galaxy->forget(*this);

    CameraManagement* cameras = CameraManagement::getInstance();
    const bool watched = isWatched();
    cameras->forgetObject(this);
    removeCameras();

    const _GameObject* player = cameras->getPlayerObject();
    if (watched && player && player->getCamera(CPOS_FRONT))
        cameras->changeCamera(CHG_PLAYER_STARSHIP);
}

bool _GameObject::isWatched() const {
    if (!cam_obj) return false;
    const _GameCameraInterface* active = CameraManagement::getInstance()->getCurrentCamera();
    return active && std::ranges::find(cam_obj->cams, active) != cam_obj->cams.end();
}

void _GameObject::removeCameras() {
    if (!cam_obj) return;
    const camobj_t mounted = getCameras();
    for (std::size_t i = 0; i < mounted.cams.size(); ++i) {
        const std::unique_ptr<_GameCameraInterface> camera(mounted.cams[i]);
        // The record shrinks with every camera, and goes with the last one.
        if (camera)
            CameraManagement::getInstance()->unregisterCamera(cam_type, camobj_t(*cam_obj),
                                                              static_cast<CAMPOSenum>(i));
    }
    cam_obj = nullptr;
}

void _GameObject::setPosition(const Point4& p) {
    position = p;
    if (galaxy) galaxy->grid.move(*this);
}

void _GameObject::setOrientation(const Vector4& v) {
    orientation = v;
    if (up * orientation == 0) return;

    Vector4 side = orientation ^ up;
    if (side.getLength() == 0) side = perpendicular(orientation);
    up = side.normalize() ^ orientation;
}

float _GameObject::getSize() const {
    return getBoundingSphere().getRadius();
}

void _GameObject::draw(DRWenum mode) const {
    glPushMatrix();
    glMultMatrixf(Matrix4(position, orientation, up).getFloatp());
    drawModel(mode);
    glPopMatrix();
}

void _GameObject::addCamera(CAMTYPEenum type, CAMPOSenum which, const Vector4& offset) {
    CameraManagement* cameras = CameraManagement::getInstance();
    const std::unique_ptr<_GameCameraInterface> replaced(getCamera(which));
    auto camera = std::make_unique<GameCamera>(position, orientation, up, offset);
    camera->setGameObject(this);
    if (!cam_obj || cam_type == CAM_INVALID) {
        cam_obj = cameras->registerCamera(type, which, camera.get());
        cam_type = type;
    } else {
        cameras->registerCamera(type, which, cam_obj, camera.get());
    }
    static_cast<void>(camera.release());  // the set holds it, and removeCameras() ends it
}

_GameCameraInterface* _GameObject::getCamera(CAMPOSenum which) const {
    if (!cam_obj || which < CPOS_FRONT || which > CPOS_BACK) return nullptr;
    return cam_obj->cams[which];
}

camobj_t _GameObject::getCameras() const {
    return cam_obj ? *cam_obj : camobj_t{std::vector<_GameCameraInterface*>(camera_positions)};
}

void _GameObject::place(const _BoundingObject& model,
                        std::unique_ptr<_BoundingObject>& bounds) const {
    model.getType() == BOUNDING_SPHERE ? assign<BoundingSphere>(model, bounds)
                                       : assign<BoundingBox>(model, bounds);
    bounds->transform(position, orientation, up);
    if (galaxy) galaxy->grid.widen(*this, bounds->getRadius());
}
