#include "game/game_object.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/matrix.h"
#include "3d/util3d.h"
#include "game/galaxy.h"
#include "game/game_camera.h"
#include "main/log_factory.h"

#include <GL/gl.h>

#include <algorithm>
#include <iostream>

namespace {

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
    if (side.getLength() == 0) side = util3d::perpendicular(orientation);
    up = side.normalize() ^ orientation;
}

const _BoundingObject& _GameObject::getBoundingObject() const {
    if (update_b_obj || !b_obj) placeBounds();
    return *b_obj;
}

BoundingSphere _GameObject::getBoundingSphere() const {
    return {position, (b_obj ? *b_obj : getBoundingObject()).getRadius()};
}

void _GameObject::resetBoundingObject() {
    model_b_obj.reset();
    update_b_obj = true;
}

void _GameObject::placeBounds() const {
    if (!model_b_obj) model_b_obj.reset(computeBoundingObject());
    model_b_obj->getType() == BOUNDING_SPHERE ? assign<BoundingSphere>(*model_b_obj, b_obj)
                                              : assign<BoundingBox>(*model_b_obj, b_obj);
    b_obj->transform(position, orientation, up);
    update_b_obj = false;
    if (galaxy) galaxy->grid.widen(*this, b_obj->getRadius());
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
    const int place = which;
    if (!cam_obj || place < CPOS_FRONT || place >= num_camera_positions) return nullptr;
    return cam_obj->cams[place];
}

camobj_t _GameObject::getCameras() const {
    return cam_obj ? *cam_obj : camobj_t{std::vector<_GameCameraInterface*>(num_camera_positions)};
}
