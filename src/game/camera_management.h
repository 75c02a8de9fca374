#pragma once

#include <list>
#include <memory>
#include <vector>

class ChaseCamera;
class GameCamera;
class _GameCameraInterface;
class _GameObject;

/// The kind of object that a camera set belongs to; the index of the set's list.
enum CAMTYPEenum {
    CAM_INVALID = -1,
    CAM_PLANET = 0,
    CAM_STARSHIP = 1,
    CAM_TORPEDO = 2,
    CAM_EXPLOSION = 3,
};

/// A camera's place on its object; the index in a camera set.
enum CAMPOSenum {
    CPOS_ALL = -1,
    CPOS_FRONT = 0,
    CPOS_LEFT = 1,
    CPOS_RIGHT = 2,
    CPOS_BACK = 3,
};

/// The length of every camera set.
constexpr int num_camera_positions = 4;

/// The ways in which the player walks from camera to camera.
enum CAMCHANGEenum {
    CHG_NEXT_RELATED_OBJECT = 0,
    CHG_PREV_RELATED_OBJECT = 1,
    CHG_PLAYER_STARSHIP = 2,
    CHG_FIRST_STARSHIP = 3,
    CHG_FIRST_PLANET = 4,
    CHG_FIRST_TORPEDO = 5,
    CHG_CURR_COCKPIT = 6,
    CHG_CURR_LEFT_WING = 7,
    CHG_CURR_RIGHT_WING = 8,
    CHG_CURR_BACK = 9,
};

/// One object's cameras, indexed by CAMPOSenum: an entry for each, null where the object has no
/// camera. The object owns the cameras.
struct camobj_t {
    std::vector<_GameCameraInterface*> cams;

    bool operator==(const camobj_t&) const = default;
};

/// Keeps the camera sets of all objects in flight and decides which camera the player looks
/// through. A set whose object has died is never used again: a change that would reach it goes to
/// the player's ship, and changes nothing when there is none.
class CameraManagement {
public:
    static CameraManagement* getInstance();

    /// The camera that the OpenGL context holds, or null when that is none of the game's cameras.
    _GameCameraInterface* getCurrentCamera() const;
    CAMTYPEenum getCurrentCameraType() const { return current_type; }

    _GameObject* getPlayerObject() const { return player_object; }
    /// Sets the player's ship; logs an error for null and while another ship is set.
    void setPlayerObject(_GameObject* object);
    /// Called by a game object that dies: a player's ship makes room for the next one, and an
    /// explosion view that looks at it freezes.
    void forgetObject(const _GameObject* object);

    /// Whether the view follows each torpedo that is fired, whoever fires it.
    bool isAutoWeapon() const { return auto_weapon; }
    void setAutoWeapon(bool on) { auto_weapon = on; }

    /// Opens a new camera set, ahead of the older ones. The record returned belongs to this class
    /// and stays in place until its last camera is unregistered. Throws Exception for a null
    /// camera.
    camobj_t* registerCamera(CAMTYPEenum type, CAMPOSenum pos, GameCamera* cam);
    /// Adds a camera to a set. Throws Exception for a null camera or set.
    void registerCamera(CAMTYPEenum type, CAMPOSenum pos, camobj_t* obj, GameCamera* cam);
    /// Takes one camera, or with CPOS_ALL the whole set, off the list. A set without cameras goes
    /// too. The cameras themselves are their object's to destroy.
    void unregisterCamera(CAMTYPEenum type, const camobj_t& obj, CAMPOSenum pos);

    /// Throws Exception without a player's ship for CHG_PLAYER_STARSHIP, without any ship for
    /// CHG_FIRST_STARSHIP, and when the object has no camera at the position asked for.
    void changeCamera(CAMCHANGEenum mode);
    /// Jumps to one camera of a given set.
    void changeCamera(CAMTYPEenum type, const camobj_t& c, CAMPOSenum which);
    /// Watches `obj` blow up, from above and ahead, until the next change of camera.
    /// `type` is CAM_EXPLOSION.
    void changeCamera(CAMTYPEenum type, _GameObject* obj);

    CameraManagement(const CameraManagement&) = delete;
    CameraManagement& operator=(const CameraManagement&) = delete;

private:
    using set_list = std::list<camobj_t>;

    CameraManagement();
    ~CameraManagement();

    set_list* listOf(CAMTYPEenum type);
    void putCamera(camobj_t& set, CAMPOSenum pos, _GameCameraInterface* cam);
    void select(CAMTYPEenum type, const camobj_t& set, CAMPOSenum pos);
    bool selectNeighbour(bool next);
    void selectPlayer();
    void selectFirst(CAMTYPEenum type);
    void selectPosition(CAMPOSenum pos);
    void showSelected();

    static CameraManagement* instance;

    std::vector<set_list> cameras;
    camobj_t current_obj;  // in step with the record that it was copied from
    CAMPOSenum current_cam = CPOS_ALL;
    CAMTYPEenum current_type = CAM_INVALID;
    CAMTYPEenum replaced_type = CAM_INVALID;  // the kind to return to from an explosion view
    std::unique_ptr<ChaseCamera> destroyed_cam;
    _GameObject* player_object = nullptr;
    bool auto_weapon = false;
};
