#include "game/3d_rep.h"

#include "3d/3d_object.h"
#include "3d/animated_sprite.h"
#include "3d/ase_object.h"
#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/gfx_factory.h"
#include "game/chance.h"
#include "game/explosion.h"
#include "game/game_event.h"
#include "game/hit_test.h"
#include "xml/xml_element.h"

#include <GL/gl.h>

#include <map>

namespace {

constexpr const char* null_item = "_3D_Rep:.addItem: null pointer";
constexpr const char* invalid_slot = "_3D_Rep: invalid slot";

constexpr float explosion_scale = 8;  // times the radius of the part

// From these shares of its explosion on, a part may set fire to what is mounted on it and to what
// it is mounted on, with the same chance in every update.
constexpr float spread_to_items = 0.3f;
constexpr float spread_to_parent = 0.5f;
constexpr double spread_chance = 0.05;

// No two parts burn equally long: from 80 to 120 percent of the sprite's own duration.
constexpr double shortest_share = 0.8;
constexpr double share_range = 0.4;

bool spreads() {
    return randomFraction() < spread_chance;
}

/// Calls `use` with a copy of the bounds, of the kind that they are.
template <class Use>
auto withCopy(const _BoundingObject& bounds, Use use) {
    if (bounds.getType() == BOUNDING_SPHERE) return use(BoundingSphere(bounds));
    return use(BoundingBox(bounds));
}

}  // namespace

_3D_Rep::_3D_Rep(SLOTenum t) : slot_type(t) {}

_3D_Rep::~_3D_Rep() = default;

_3D_Rep::_3D_Rep(const _3D_Rep& other)
    : _Drawable(other),
      _Hitable(other),
      obj(other.obj),
      slot_type(other.slot_type),
      explosion_name(other.explosion_name),
      slots(other.slots) {
    for (slot_t& slot : slots) slot.item = nullptr;
}

void _3D_Rep::draw(DRWenum mode) const {
    for (const slot_t& slot : slots) {
        if (!slot.item) continue;
        glPushMatrix();
        glTranslatef(slot.pos.x, slot.pos.y, slot.pos.z);
        slot.item->draw(mode);
        glPopMatrix();
    }
    if (explosion)
        drawExplosion();
    else if (obj)
        obj->draw(mode);
}

void _3D_Rep::drawExplosion() const {
    if (exploded || !b_obj) return;
    drawPartExplosion(*explosion, getPosition(), b_obj->getRadius() * explosion_scale);
}

Point4 _3D_Rep::getPosition() const {
    if (!parent_object) return {};
    return parent_object->getPosition() + Vector4(parent_object->slots[parent_slot_number].pos);
}

Vector4 _3D_Rep::getOrientation() const {
    return parent_object ? parent_object->getOrientation() : Vector4(0, 0, 1, 1);
}

Vector4 _3D_Rep::getUp() const {
    return parent_object ? parent_object->getUp() : Vector4(0, 1, 0, 1);
}

Matrix4 _3D_Rep::getParentShipMatrix() const {
    return parent_object ? parent_object->getParentShipMatrix() : Matrix4(MATRIX_UNIT);
}

void _3D_Rep::resetStarshipControl() {
    if (parent_object) parent_object->resetStarshipControl();
}

void _3D_Rep::update(unsigned int timediff) {
    if (updateTree(timediff) && parent_object) parent_object->explode();
}

bool _3D_Rep::updateTree(unsigned int timediff) {
    for (const slot_t& slot : slots) {
        if (slot.item) slot.item->update(timediff);
    }
    if (!explosion || exploded) return false;
    if (explosion->updateAnimation(static_cast<int>(timediff))) return spreadExplosion();

    exploded = true;
    for (const slot_t& slot : slots) {
        if (slot.item) slot.item->explode();
    }
    return true;
}

bool _3D_Rep::spreadExplosion() {
    const float progress = explosion->getProgress();
    if (progress <= spread_to_items) return false;
    for (const slot_t& slot : slots) {
        if (slot.item && spreads()) slot.item->explode();
    }
    return progress > spread_to_parent && spreads();
}

void _3D_Rep::explode() {
    if (explosion) return;
    explosion = std::make_unique<AnimatedSprite>(
        GFX_Factory::getInstance()->getAnimatedSprite(explosion_name));
    const double share = shortest_share + share_range * randomFraction();
    explosion->setDuration(static_cast<int>(explosion->getDuration() * share));
    resetStarshipControl();
    if (b_obj) soundExplosion(getPosition(), b_obj->getRadius());
}

bool _3D_Rep::isPerhapsHit(const _BoundingObject& object, float& damage) {
    const Matrix4 ship = getParentShipMatrix();
    return isHitAt(Point4(ship.getTranslation()), ship.getZ(), ship.getY(), object, damage);
}

bool _3D_Rep::isHitAt(const Point4& pos, const Vector4& direction, const Vector4& up,
                      const _BoundingObject& object, float& damage) {
    if (!isItemHit(object, damage)) {
        if (!b_obj) return false;
        const bool hit = withCopy(*b_obj, [&](auto bounds) {
            bounds.transform(pos, direction, up);
            return isHit(bounds, object);
        });
        if (!hit) return false;
    }

    try {
        _Damageable::damage(damage);
    } catch (const DestroyEvent&) {
        explode();
    }
    damage = 0;
    return true;
}

bool _3D_Rep::isItemHit(const _BoundingObject& object, float& damage) {
    for (const slot_t& slot : slots) {
        if (slot.item && slot.item->isPerhapsHit(object, damage)) return true;
    }
    return false;
}

void _3D_Rep::addSlot(SLOTenum type, const Point4& pos, const Vector4& direction,
                      const Vector4& up) {
    slots.push_back({type, pos, direction, up, nullptr});
}

void _3D_Rep::checkSlot(int i) const {
    if (i < 0 || i >= static_cast<int>(slots.size())) throw InvalidSlotException(invalid_slot);
}

slot_t _3D_Rep::getSlot(int i) const {
    checkSlot(i);
    return slots[i];
}

int _3D_Rep::getNextFreeSlot(SLOTenum t) const {
    for (size_t i = 0; i < slots.size(); ++i) {
        if (!slots[i].item && slots[i].type & t) return static_cast<int>(i);
    }
    return -1;
}

void _3D_Rep::addItem(_3D_Rep* it) {
    if (!it) throw Exception(null_item);
    addItem(getNextFreeSlot(it->slot_type), it);
}

void _3D_Rep::addItem(int slot_nr, _3D_Rep* it) {
    checkSlot(slot_nr);
    if (!it) throw Exception(null_item);
    slot_t& slot = slots[slot_nr];
    if (!(slot.type & it->slot_type)) throw InvalidSlotException(invalid_slot);

    slot.item = it;
    it->parent_slot_number = slot_nr;
    it->parent_object = this;
    it->transformBoundingObject(slot.pos, slot.direction, slot.up);
    it->setMatrix(Matrix4(slot.pos, slot.direction, slot.up) * transform);
}

void _3D_Rep::transformBoundingObject(const Point4& pos, const Vector4& direction,
                                      const Vector4& up) {
    b_obj.reset();
    if (!obj) return;
    b_obj =
        withCopy(*obj->getBoundingObject(), [](auto bounds) -> std::unique_ptr<_BoundingObject> {
            return std::make_unique<decltype(bounds)>(bounds);
        });
    b_obj->transform(pos, direction, up);
}

BoundingBox _3D_Rep::getTotalBoundingBox() const {
    if (!b_obj) throw Exception("_3D_Rep::getTotalBoundingBox: null pointer");
    BoundingBox total(*b_obj);
    for (const slot_t& slot : slots) {
        if (slot.item) total += slot.item->getTotalBoundingBox();
    }
    return total;
}

void _3D_Rep::readBody(const XMLElement& node) {
    set3DObject(std::make_shared<AseObject>(node.getAttributeAsString("rep3d"), MTL_TEX_ONLY,
                                            BOUNDING_BOX, false));
    setResistance(static_cast<float>(node.getAttributeAsInt("resistance", 10)));
    setExplosionName(node.getAttributeAsString("explosion_name"));
}

void _3D_Rep::readSlot(const XMLElement& node, const std::string& part) {
    static const std::map<std::string, SLOTenum> kinds = {
        {"Engine", SLOT_ENGINE}, {"Wing", SLOT_WING}, {"Weapon", SLOT_WEAPON}};

    const std::string type = node.getAttributeAsString("type");
    const auto kind = kinds.find(type);
    if (kind == kinds.end()) {
        throw Exception(part + "::" + part + ": unknown slot type (" + type + ")");
    }
    // Whatever a game file mounts looks ahead, like the ship.
    addSlot(kind->second, node.getAttributeAsPoint("trans_offset"), Vector4(0, 0, 1, 1),
            Vector4(0, 1, 0, 1));
}
