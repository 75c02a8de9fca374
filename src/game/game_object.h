#pragma once

#include "3d/point.h"
#include "3d/vector.h"
#include "game/camera_management.h"
#include "game/drawable.h"
#include "game/object_slot.h"

#include <memory>
#include <string>

class _BoundingObject;
class _GameCameraInterface;
class BoundingSphere;
class Galaxy;

/// The kind of an object. An object's id is its kind OR-ed over a small number, so that ids tell
/// the kind and sort by it.
enum GAMEOBJenum {
    GO_SUN = 0x1000,
    GO_PLANET = 0x2000,
    GO_ASTEROID = 0x3000,
    GO_WORMHOLE = 0x4000,
    GO_STARSHIP = 0x5000,
    GO_TORPEDO = 0x6000,
    GO_LASER = 0x7000,
};

/// Everything that lives in a galaxy: a planet, a ship, a shot. It has an identity, a pose, bounds
/// to collide with, and cameras that ride on it. The galaxy updates it every frame, draws it while
/// it is in view and deletes it in the end; the player's ship alone belongs to the game.
class _GameObject : public _Drawable {
public:
    /// An object at the origin that faces along +z, with +y up.
    _GameObject(int i, GAMEOBJenum t);
    /// The cameras of the object end with it; a view through one of them goes to the player's ship.
    /// Slots that held the object read null.
    ~_GameObject() override;
    _GameObject& operator=(const _GameObject&) = delete;

    int getId() const { return id; }
    std::string getName() const { return name; }
    GAMEOBJenum getType() const { return type; }
    /// The galaxy that holds the object; null until one has taken it in.
    Galaxy* getGalaxy() const { return galaxy; }

    Point4 getPosition() const { return position; }
    Vector4 getOrientation() const { return orientation; }
    Vector4 getUp() const { return up; }
    void setPosition(const Point4& p);
    /// Turns the object to face along `v`, and its up vector with it so that it stays
    /// perpendicular.
    void setOrientation(const Vector4& v);
    /// Stores the up vector as it comes.
    void setUp(const Vector4& u) { up = u; }

    /// Bounds in the object's own coordinates, from which its bounds in the world are made. Asked
    /// for once, and again after resetBoundingObject(). The caller owns the result.
    virtual _BoundingObject* computeBoundingObject() const = 0;
    /// The bounds in world coordinates, as of the last update.
    virtual const _BoundingObject& getBoundingObject() const;
    /// A sphere around the present position, as wide as the bounds when they were last built.
    virtual BoundingSphere getBoundingSphere() const;
    /// The radius of the bounding sphere.
    float getSize() const;

    /// Lets `time_diff` milliseconds pass. What the object wants done to the world, such as taking
    /// in its shots or taking the object away, leaves as a thrown GameEvent.
    virtual void update(int time_diff) = 0;

    /// Draws the model at the object's pose.
    void draw(DRWenum mode) const override;
    /// Draws the model in its own coordinates.
    virtual void drawModel(DRWenum mode) const = 0;

    /// Mounts a camera at `offset` in the object's own frame.
    void addCamera(CAMTYPEenum type, CAMPOSenum which, const Vector4& offset);
    /// The camera at that position, null where there is none.
    _GameCameraInterface* getCamera(CAMPOSenum which) const;
    /// A copy of the camera set, without cameras for an object that has none.
    camobj_t getCameras() const;

protected:
    friend class Galaxy;

    /// The copy has neither cameras nor a galaxy, and builds bounds of its own.
    _GameObject(const _GameObject& other);

    void setId(int i) { id = i; }
    void setName(const std::string& n) { name = n; }
    void setGalaxy(Galaxy* g) { galaxy = g; }

    /// To be called when computeBoundingObject() would now give something else.
    void resetBoundingObject();

    mutable bool update_b_obj = true;  ///< the bounds are stale

private:
    friend class ObjectGrid;

    /// Whether the player looks through one of the object's cameras.
    bool isWatched() const;
    void removeCameras();
    void placeBounds() const;

    int id;
    std::string name = "unknown";
    GAMEOBJenum type;
    Point4 position;
    Vector4 orientation{0, 0, 1, 1};
    Vector4 up{0, 1, 0, 1};
    mutable std::unique_ptr<_BoundingObject> b_obj;        ///< in world coordinates
    mutable std::unique_ptr<_BoundingObject> model_b_obj;  ///< in the object's own
    CAMTYPEenum cam_type = CAM_INVALID;  ///< the kind under which the cameras are registered
    camobj_t* cam_obj = nullptr;         ///< the registered set; the camera management owns it
    Galaxy* galaxy = nullptr;
    int grid_entry = -1;  ///< where the galaxy's grid keeps the object
};
