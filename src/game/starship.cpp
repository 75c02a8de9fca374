#include "game/starship.h"

#include "game/ai_static_control.h"
#include "game/camera_management.h"
#include "game/cannon.h"
#include "game/engine.h"
#include "game/facing.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/hit_test.h"
#include "game/hull.h"
#include "game/part_store.h"
#include "game/player_control.h"
#include "game/reactor.h"
#include "game/tank.h"
#include "game/wing.h"
#include "xml/xml_element.h"

#include <SDL.h>

#include <cstdlib>
#include <map>

namespace {

constexpr float wreck_roll_rate = 90;          // degrees per second
constexpr double unarmed_target_range = 1000;  // world units

struct ShipCamera {
    CAMPOSenum place;
    Vector4 offset;
    float pitch, yaw;  // degrees
};

const ShipCamera ship_cameras[] = {
    {CPOS_FRONT, Vector4(0, 0, 15, 1), 0, 0},
    {CPOS_LEFT, Vector4(20, 15, -15, 1), -30, -20},
    {CPOS_RIGHT, Vector4(-20, 15, -15, 1), -30, 20},
    {CPOS_BACK, Vector4(0, 10, -20, 1), -20, 0},
};

/// The name of the catalogue part that a ship or one of its children asks for.
std::string partType(const XMLElement& node) {
    return node.getAttributeAsString("type");
}

}  // namespace

Starship::Starship(const XMLElement& node)
    : _MovingGameObject(node.getAttributeAsInt("id", 10) | GO_STARSHIP, GO_STARSHIP) {
    if (node.getName() != "Starship") {
        throw Exception("Starship::Starship: invalid game file (wrong node type)");
    }
    readPose(node);
    readParts(node);
    readChildren(node);
    if (!control) control = std::make_unique<AIStaticControl>(this);

    computeTotalBoundingBox();
    addCameras();
    getBoundingObject();  // the ship's size can be asked for from now on
    srand(SDL_GetTicks());
}

Starship::~Starship() = default;

void Starship::readPose(const XMLElement& node) {
    setName(node.getAttributeAsString("name"));
    setPosition(node.getAttributeAsPoint("pos"));
    setVelocity(0);
    const facing_t facing = readFacing(node, "orientation", "up");
    setOrientation(facing.orientation);
    const auto heading = ifPresent([&] { return node.getAttributeAsDirection("heading"); });
    setHeading(heading.value_or(getOrientation()));
    setUp(facing.up);
}

void Starship::readParts(const XMLElement& node) {
    const PartStore& store = *PartStore::getInstance();
    setHull(store.getHull(node.getAttributeAsString("hull")));
    setEngine(store.getEngine(node.getAttributeAsString("engine")));
    setReactor(store.getReactor(node.getAttributeAsString("reactor")));
    setTank(store.getTank(node.getAttributeAsString("tank")));
}

void Starship::readChildren(const XMLElement& node) {
    using Reader = void (Starship::*)(const XMLElement&);
    static const std::map<std::string, Reader> readers = {
        {"UserControl", &Starship::takeControl<PlayerControl>},
        // Of the computer's pilots only the one at rest flies yet.
        {"AIStaticControl", &Starship::takeControl<AIStaticControl>},
        {"AIControl", &Starship::takeControl<AIStaticControl>},
        {"AICircleControl", &Starship::takeControl<AIStaticControl>},
        {"WingConfig", &Starship::hangWing},
        {"CannonConfig", &Starship::hangCannon},
        {"TorpedoStockpile", &Starship::skip},
    };

    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const auto reader = readers.find(child.getName());
        if (reader == readers.end()) {
            throw Exception("Starship::Starship: invalid XML subobject for hull (" +
                            child.getName() + ")");
        }
        (this->*reader->second)(child);
    }
}

template <class Control>
void Starship::takeControl(const XMLElement&) {
    control = std::make_unique<Control>(this);
}

void Starship::hangWing(const XMLElement& node) {
    const PartStore& store = *PartStore::getInstance();
    Wing* wing = wings.emplace_back(store.getWing(partType(node))).get();
    hull->addItem(wing);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        if (child.getName() != "CannonConfig") {
            throw Exception("Starship::Starship: invalid XML subobject for wing (" +
                            child.getName() + ")");
        }
        addCannon(store.getCannon(partType(child)));
        wing->addItem(cannons.back().get());
    }
}

void Starship::hangCannon(const XMLElement& node) {
    const PartStore& store = *PartStore::getInstance();
    hull->addItem(hull_weapons.emplace_back(store.getCannon(partType(node))).get());
}

void Starship::addCameras() {
    for (const ShipCamera& camera : ship_cameras) {
        addCamera(CAM_STARSHIP, camera.place, camera.offset);
        getCamera(camera.place)->rotateX(camera.pitch);
        getCamera(camera.place)->rotateY(camera.yaw);
    }
}

_Control* Starship::getControl() const {
    if (!control) throw Exception("Starship::getControl: null pointer");
    return control.get();
}

double Starship::getTorpedoRange() const {
    return unarmed_target_range;
}

template <class Part>
void Starship::install(std::unique_ptr<Part>& place, Part* part) {
    if (!part || part == place.get()) return;
    place.reset(part);
    static_cast<_StarshipPart*>(part)->setParentShip(this);
}

void Starship::setHull(Hull* h) {
    if (!h || h == hull.get()) return;
    cannons.clear();
    hull_weapons.clear();
    wings.clear();
    install(hull, h);
    hull->transformBoundingObject(Point4(), Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1));
}

void Starship::setReactor(Reactor* r) {
    install(reactor, r);
}
void Starship::setTank(Tank* t) {
    install(tank, t);
}
void Starship::setEngine(Engine* e) {
    install(engine, e);
}

void Starship::addCannon(Cannon* c) {
    if (c) install(cannons.emplace_back(), c);
}

void Starship::computeTotalBoundingBox() {
    total_bbox = hull->getTotalBoundingBox();
}

_BoundingObject* Starship::computeBoundingObject() const {
    return new BoundingBox(total_bbox);
}

void Starship::update(int time_diff) {
    move(time_diff);
    const bool at_its_end = bursting;
    hull->update(static_cast<unsigned int>(time_diff));
    if (at_its_end) throw StarshipFadedEvent();

    runReactor(time_diff);
    control->update(time_diff);
    if (destroyed) {
        const float roll = static_cast<float>(time_diff) * wreck_roll_rate / 1000;
        setUp(getUp().rotate(getHeading(), roll));
    }
    dropLostTarget();
}

/// A reactor without fuel charges nothing; everything else goes on.
void Starship::runReactor(int time_diff) {
    try {
        reactor->update(time_diff);
    } catch (const TankEmptyEvent&) {
    }
}

void Starship::dropLostTarget() {
    if (!selected_object) return;
    const _GameObject* target = *selected_object;
    const bool lost =
        !target || Vector4(getPosition(), target->getPosition()).getLength() > getTorpedoRange();
    if (lost) selected_object.reset();
}

void Starship::drawModel(DRWenum mode) const {
    if (!hide) hull->draw(mode);
}

bool Starship::isPerhapsHit(const _BoundingObject& o, float& energy) {
    if (bursting) return false;
    if (!isHit(getBoundingObject(), o)) return false;
    return hull->isPerhapsHit(o, energy);
}

void Starship::explode(bool h) {
    hide = h;
    if (bursting) return;
    bursting = true;
    showEnd();
}

void Starship::showEnd() {
    CameraManagement* cameras = CameraManagement::getInstance();
    const _GameCameraInterface* current = cameras->getCurrentCamera();
    if (current && current->getGameObject() == this) cameras->changeCamera(CAM_EXPLOSION, this);
}
