#pragma once

#include "3d/matrix.h"
#include "3d/point.h"
#include "3d/vector.h"
#include "game/drawable.h"
#include "game/hitable.h"
#include "main/exception.h"

#include <memory>
#include <string>
#include <vector>

class _3D_Rep;
class _3DObject;
class _BoundingObject;
class AnimatedSprite;
class BoundingBox;
class XMLElement;

/// The kind of a slot and of a part that fits into one. Compared by bitwise AND: wings and weapons
/// share a bit and take each other's places, engines fit their own slots alone.
enum SLOTenum {
    SLOT_NONE = 0,
    SLOT_WING = 2,
    SLOT_WEAPON = 3,
    SLOT_ENGINE = 4,
};

/// One mount point of a part.
struct slot_t {
    SLOTenum type;
    Point4 pos;             ///< in the model space of the part that has the slot
    Vector4 direction, up;  ///< how the mounted part faces
    _3D_Rep* item;          ///< what is mounted, null when free; the ship owns it
};

/// A slot that does not exist or does not fit.
class InvalidSlotException : public Exception {
public:
    using Exception::Exception;
};

/// The side of a part that can be seen and hit. A ship's body is a tree of these nodes: the hull is
/// the root, and each node has slots that hold one child each. Hits meet the outermost parts first,
/// and a part that explodes takes its neighbours with it.
class _3D_Rep : public _Drawable, public _Hitable {
public:
    ~_3D_Rep() override;
    _3D_Rep& operator=(const _3D_Rep&) = delete;

    /// Draws what is mounted and then the part itself: its model, its explosion from the moment
    /// that it bursts, and nothing once that is over. Items are moved to their slots, never turned.
    void draw(DRWenum mode) const override;

    /// The part's place in the world: its parent's, plus the slot's, unturned.
    virtual Point4 getPosition() const;
    virtual Vector4 getOrientation() const;
    virtual Vector4 getUp() const;
    /// The pose of the ship that carries the tree.
    virtual Matrix4 getParentShipMatrix() const;

    /// Lets what is mounted live, then spreads this part's explosion. `timediff` is milliseconds.
    virtual void update(unsigned int timediff);

    /// Asks what is mounted, in slot order, then this part. The first part met takes all of
    /// `damage` and leaves 0; without a hit `damage` stays. A part that breaks explodes.
    bool isPerhapsHit(const _BoundingObject& object, float& damage) override;

    /// Starts the part's explosion, which takes the ship's control away. A part explodes only once.
    /// Throws Exception when the effects hold no sprite of the part's explosion name.
    void explode();

    void set3DObject(std::shared_ptr<const _3DObject> model) { obj = std::move(model); }
    /// The model, shared between all copies of a part; null when there is none.
    const _3DObject* get3DObject() const { return obj.get(); }

    SLOTenum getSlotType() const { return slot_type; }
    /// The part's bounds in the model space of its parent, null until it is attached.
    const _BoundingObject* getBoundingObject() const { return b_obj.get(); }
    /// The placement relative to the ship: the product of the slots' matrices from the hull down.
    const Matrix4& getMatrix() const { return transform; }
    /// The index of the parent's slot, -1 until the part is mounted.
    int getParentSlotNumber() const { return parent_slot_number; }
    _3D_Rep* getParentObject() const { return parent_object; }

    void addSlot(SLOTenum type, const Point4& pos, const Vector4& direction, const Vector4& up);
    unsigned int getNumSlots() const { return static_cast<unsigned int>(slots.size()); }
    /// Throws InvalidSlotException on an index outside the slots.
    slot_t getSlot(int i) const;
    /// The lowest free slot that takes a part of kind `t`, -1 if there is none.
    int getNextFreeSlot(SLOTenum t) const;

    /// Mounts a part in the next free slot, or in the one given. The caller keeps the ownership.
    /// Throws InvalidSlotException when nothing fits, Exception on a null item.
    void addItem(_3D_Rep* it);
    void addItem(int slot_nr, _3D_Rep* it);

    /// Makes the part's bounds anew from those of its model and moves them to the given pose.
    void transformBoundingObject(const Point4& pos, const Vector4& direction, const Vector4& up);
    /// A box around this part and all that is mounted below it. Throws Exception on a part that is
    /// not attached.
    BoundingBox getTotalBoundingBox() const;

protected:
    explicit _3D_Rep(SLOTenum t);
    /// The copy shares the model and has the same slots, all free; it is not attached anywhere.
    _3D_Rep(const _3D_Rep& other);

    /// Tells the ship, up the tree, that it is lost.
    virtual void resetStarshipControl();

    void setExplosionName(const std::string& name) { explosion_name = name; }

    /// Reads "rep3d", "resistance" and "explosion_name": the model, its armour and how it ends.
    void readBody(const XMLElement& node);
    /// Reads a "Slot" element. Throws Exception "Part::Part: unknown slot type (...)" for `part`.
    void readSlot(const XMLElement& node, const std::string& part);

    /// The hit test with the ship at the given pose.
    bool isHitAt(const Point4& pos, const Vector4& direction, const Vector4& up,
                 const _BoundingObject& object, float& damage);
    /// The update without the last step: true when the explosion goes on to the parent. It spreads
    /// to what is mounted by chance from early on, to the parent from its middle on, and at its end
    /// to all of them.
    bool updateTree(unsigned int timediff);

private:
    void setMatrix(const Matrix4& m) { transform = m; }
    void checkSlot(int i) const;
    bool isItemHit(const _BoundingObject& object, float& damage);
    void drawExplosion() const;
    bool spreadExplosion();

    std::shared_ptr<const _3DObject> obj;
    std::unique_ptr<_BoundingObject> b_obj;
    SLOTenum slot_type;
    _3D_Rep* parent_object = nullptr;
    std::string explosion_name;
    int parent_slot_number = -1;
    std::vector<slot_t> slots;
    std::unique_ptr<AnimatedSprite> explosion;  ///< null until it starts
    bool exploded = false;                      ///< the explosion is over and has spread
    Matrix4 transform = Matrix4(MATRIX_UNIT);
};
