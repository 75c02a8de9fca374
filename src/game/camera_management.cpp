#include "game/camera_management.h"

#include "3d/opengl.h"
#include "game/chase_camera.h"
#include "game/game_camera.h"
#include "game/game_object.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {

constexpr int num_types = 4;
constexpr float explosion_distance = 20;  // sizes of the object that blows up

void report(const char* text) {
    logLine(std::cerr, "ERROR (GAME): ", "CameraManagement::", text);
}

/// The set's camera at `pos`, null when it has none there.
_GameCameraInterface* cameraOf(const camobj_t& set, int pos) {
    if (pos < 0 || pos >= static_cast<int>(set.cams.size())) return nullptr;
    return set.cams[pos];
}

bool isEmpty(const camobj_t& set) {
    return std::all_of(set.cams.begin(), set.cams.end(), [](const auto* cam) { return !cam; });
}

}  // namespace

CameraManagement* CameraManagement::instance = nullptr;

CameraManagement* CameraManagement::getInstance() {
    if (!instance) instance = new CameraManagement();
    return instance;
}

CameraManagement::CameraManagement() : cameras(num_types) {}

CameraManagement::~CameraManagement() = default;

_GameCameraInterface* CameraManagement::getCurrentCamera() const {
    return dynamic_cast<_GameCameraInterface*>(OpenGLContext::getInstance()->getCurrentCamera());
}

void CameraManagement::setPlayerObject(_GameObject* object) {
    if (!object) return report("setPlayerObject: null pointer");
    if (player_object && player_object != object)
        return report("setPlayerObject: player object already exists");
    player_object = object;
}

void CameraManagement::forgetObject(const _GameObject* object) {
    if (player_object == object) player_object = nullptr;
    if (destroyed_cam && destroyed_cam->getTargetObject() == object) destroyed_cam->freeze();
}

/// The sets of one kind, null for what is no kind.
CameraManagement::set_list* CameraManagement::listOf(CAMTYPEenum type) {
    return type >= CAM_PLANET && type <= CAM_EXPLOSION ? &cameras[type] : nullptr;
}

/// Changes a record, and the copy of it that is looked through.
void CameraManagement::putCamera(camobj_t& set, CAMPOSenum pos, _GameCameraInterface* cam) {
    if (current_obj == set) current_obj.cams.at(pos) = cam;
    set.cams.at(pos) = cam;
}

camobj_t* CameraManagement::registerCamera(CAMTYPEenum type, CAMPOSenum pos, GameCamera* cam) {
    if (!cam) throw Exception("CameraManagement::registerCamera: null pointer");

    camobj_t set{std::vector<_GameCameraInterface*>(num_camera_positions)};
    set.cams.at(pos) = cam;
    cameras.at(type).push_front(set);
    return &cameras[type].front();
}

void CameraManagement::registerCamera(CAMTYPEenum, CAMPOSenum pos, camobj_t* obj, GameCamera* cam) {
    if (!cam || !obj) throw Exception("CameraManagement::registerCamera: null pointer");
    putCamera(*obj, pos, cam);
}

void CameraManagement::unregisterCamera(CAMTYPEenum type, const camobj_t& obj, CAMPOSenum pos) {
    set_list* sets = listOf(type);
    const auto set = sets ? std::find(sets->begin(), sets->end(), obj) : set_list::iterator();
    if (!sets || set == sets->end()) return report("unregisterCamera: no such camobj_t");

    for (int i = 0; i < num_camera_positions; ++i)
        if (pos == CPOS_ALL || pos == i) putCamera(*set, static_cast<CAMPOSenum>(i), nullptr);
    if (isEmpty(*set)) sets->erase(set);
}

void CameraManagement::changeCamera(CAMCHANGEenum mode) {
    switch (mode) {
        case CHG_NEXT_RELATED_OBJECT:
        case CHG_PREV_RELATED_OBJECT:
            if (!selectNeighbour(mode == CHG_NEXT_RELATED_OBJECT)) return;
            break;
        case CHG_PLAYER_STARSHIP:
            if (!player_object)
                throw Exception("CameraManagement::changeCamera: player object not set");
            selectPlayer();
            break;
        case CHG_FIRST_STARSHIP:
            if (cameras[CAM_STARSHIP].empty())
                throw Exception("CameraManagement::changeCamera: no starship cameras registered!");
            selectFirst(CAM_STARSHIP);
            break;
        case CHG_FIRST_PLANET:
            selectFirst(CAM_PLANET);
            break;
        case CHG_FIRST_TORPEDO:
            selectFirst(CAM_TORPEDO);
            break;
        case CHG_CURR_COCKPIT:
            selectPosition(CPOS_FRONT);
            break;
        case CHG_CURR_LEFT_WING:
            selectPosition(CPOS_LEFT);
            break;
        case CHG_CURR_RIGHT_WING:
            selectPosition(CPOS_RIGHT);
            break;
        case CHG_CURR_BACK:
            selectPosition(CPOS_BACK);
            break;
        default:
            report("changeCamera: invalid mode");
    }
    showSelected();
}

void CameraManagement::changeCamera(CAMTYPEenum type, const camobj_t& c, CAMPOSenum which) {
    select(type, c, which);
    showSelected();
}

void CameraManagement::changeCamera(CAMTYPEenum type, _GameObject* obj) {
    if (!obj) return report("changeCamera: null pointer");
    if (type != CAM_EXPLOSION)
        return report("changeCamera: this method should only be used for explosion cameras");

    Vector4 away = obj->getOrientation() + obj->getUp();
    const float distance = obj->getSize() * explosion_distance;
    const Point4 pos = obj->getPosition() + away.normalize() * distance;
    auto explosion_view = std::make_unique<ChaseCamera>(obj, pos);

    if (current_type != CAM_EXPLOSION) replaced_type = current_type;
    current_type = CAM_EXPLOSION;
    OpenGLContext::getInstance()->setCurrentCamera(explosion_view.get());
    destroyed_cam = std::move(explosion_view);
}

void CameraManagement::select(CAMTYPEenum type, const camobj_t& set, CAMPOSenum pos) {
    current_type = type;
    current_obj = set;
    current_cam = pos;
}

void CameraManagement::selectPlayer() {
    select(CAM_STARSHIP, player_object->getCameras(), CPOS_FRONT);
}

/// Goes to the newest set of a kind, if there is one.
void CameraManagement::selectFirst(CAMTYPEenum type) {
    if (!cameras[type].empty()) select(type, cameras[type].front(), CPOS_FRONT);
}

/// Goes to another place on the same object, if it has a camera there.
void CameraManagement::selectPosition(CAMPOSenum pos) {
    if (cameraOf(current_obj, pos)) current_cam = pos;
}

/// Goes round the list of the current kind. False when the current set is not on it.
bool CameraManagement::selectNeighbour(bool next) {
    const set_list* sets = listOf(current_type);
    const auto current =
        sets ? std::find(sets->begin(), sets->end(), current_obj) : set_list::const_iterator();
    if (!sets || current == sets->end()) {
        report("changeCamera: current_obj not in list (very strange)");
        return false;
    }
    if (next) {
        const auto following = std::next(current);
        current_obj = following == sets->end() ? sets->front() : *following;
    } else {
        current_obj = current == sets->begin() ? sets->back() : *std::prev(current);
    }
    return true;
}

/// Makes the selected camera the current one, which ends an explosion view.
void CameraManagement::showSelected() {
    if (isEmpty(current_obj)) {  // its object has died
        if (!player_object) return;
        selectPlayer();
    }
    OpenGLContext::getInstance()->setCurrentCamera(cameraOf(current_obj, current_cam));
    if (current_type == CAM_EXPLOSION) current_type = replaced_type;
    destroyed_cam.reset();
}
