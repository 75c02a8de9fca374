#include "game/starship.h"

#include "3d/animated_sprite.h"
#include "3d/color_rgba.h"
#include "3d/gfx_factory.h"
#include "3d/vapor_trail.h"
#include "game/ai_circle_control.h"
#include "game/ai_control.h"
#include "game/ai_static_control.h"
#include "game/camera_management.h"
#include "game/cannon.h"
#include "game/chance.h"
#include "game/cloak.h"
#include "game/cockpit.h"
#include "game/engine.h"
#include "game/explosion.h"
#include "game/facing.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/hit_test.h"
#include "game/hull.h"
#include "game/part_store.h"
#include "game/player_control.h"
#include "game/radar.h"
#include "game/reactor.h"
#include "game/shield.h"
#include "game/tank.h"
#include "game/torpedo_launcher.h"
#include "game/wing.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <SDL.h>

#include <cstdlib>
#include <iostream>
#include <map>

namespace {

constexpr float wreck_roll_rate = 90;          // degrees per second
constexpr double unarmed_target_range = 1000;  // world units
constexpr float explosion_scale = 15;          // times the ship's radius

// The shield shows itself after a hit, in flashes: milliseconds.
constexpr int shield_display_time = 500;
constexpr int shortest_flash = 100;
constexpr int shortest_gap = 20;
constexpr int first_flash = 50;

/// From one to almost two times `shortest`.
int phase(int shortest) {
    return shortest + static_cast<int>(randomFraction() * shortest);
}

// The trail of vapour: one square a frame, that far behind the ship's middle.
constexpr float trail_distance = 10;
constexpr unsigned int trail_life = 2000;  // milliseconds
constexpr unsigned int trail_start_size = 10;
constexpr unsigned int trail_end_size = 20;

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
    std::unique_ptr<Shield> new_shield = readParts(node);
    readChildren(node);
    if (!control) control = std::make_unique<AIStaticControl>(this);

    computeTotalBoundingBox();
    setShield(new_shield.release());
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

std::unique_ptr<Shield> Starship::readParts(const XMLElement& node) {
    const PartStore& store = *PartStore::getInstance();
    const auto nameOf = [&](const char* part) {
        return ifPresent([&] { return node.getAttributeAsString(part); });
    };
    setHull(store.getHull(node.getAttributeAsString("hull")));
    setEngine(store.getEngine(node.getAttributeAsString("engine")));
    std::unique_ptr<Shield> new_shield;
    if (const auto name = nameOf("radar")) setRadar(store.getRadar(*name));
    if (const auto name = nameOf("shield")) new_shield.reset(store.getShield(*name));
    if (const auto name = nameOf("cloak")) setCloak(store.getCloak(*name));
    setReactor(store.getReactor(node.getAttributeAsString("reactor")));
    setTank(store.getTank(node.getAttributeAsString("tank")));
    return new_shield;
}

void Starship::readChildren(const XMLElement& node) {
    using Reader = void (Starship::*)(const XMLElement&);
    static const std::map<std::string, Reader> readers = {
        {"UserControl", &Starship::takeControl<PlayerControl>},
        {"AIStaticControl", &Starship::takeControl<AIStaticControl>},
        {"AIControl", &Starship::takeAIControl},
        {"AICircleControl", &Starship::takeCircleControl},
        {"WingConfig", &Starship::hangWing},
        {"CannonConfig", &Starship::hangSilentCannon},
        {"TorpedoLauncherConfig", &Starship::hangSilentLauncher},
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

void Starship::takeAIControl(const XMLElement& node) {
    control = std::make_unique<AIControl>(this, node);
}

void Starship::takeCircleControl(const XMLElement& node) {
    const Point4 center = node.getAttributeAsPoint("center");
    const float speed = node.getAttributeAsFloat("speed");
    control = std::make_unique<AICircleControl>(this, center, speed);
}

void Starship::hangWing(const XMLElement& node) {
    using Reader = void (Starship::*)(Wing&, const XMLElement&);
    static const std::map<std::string, Reader> readers = {
        {"CannonConfig", &Starship::hangCannon},
        {"TorpedoLauncherConfig", &Starship::hangLauncher},
    };

    Wing* wing = wings.emplace_back(PartStore::getInstance()->getWing(partType(node))).get();
    hull->addItem(wing);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const auto reader = readers.find(child.getName());
        if (reader == readers.end()) {
            throw Exception("Starship::Starship: invalid XML subobject for wing (" +
                            child.getName() + ")");
        }
        (this->*reader->second)(*wing, child);
    }
}

void Starship::hangCannon(Wing& wing, const XMLElement& node) {
    addCannon(PartStore::getInstance()->getCannon(partType(node)));
    wing.addItem(cannons.back().get());
}

void Starship::hangLauncher(Wing& wing, const XMLElement& node) {
    if (torpedo_launcher) {
        logLine(std::cerr,
                "WARNING (GAME): ", "Starship::Starship: torpedo launcher already exists");
        return;
    }
    setTorpedoLauncher(PartStore::getInstance()->getTorpedoLauncher(partType(node)));
    wing.addItem(torpedo_launcher.get());
}

void Starship::hangSilentCannon(const XMLElement& node) {
    silent_weapons.emplace_back(PartStore::getInstance()->getCannon(partType(node)));
    hull->addItem(silent_weapons.back().get());
}

void Starship::hangSilentLauncher(const XMLElement& node) {
    silent_weapons.emplace_back(PartStore::getInstance()->getTorpedoLauncher(partType(node)));
    hull->addItem(silent_weapons.back().get());
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
    return torpedo_launcher ? torpedo_launcher->getRange() : unarmed_target_range;
}

template <class Part>
void Starship::replace(std::unique_ptr<Part>& place, Part* part) {
    if (part == place.get()) return;
    place.reset(part);
    if (part) static_cast<_StarshipPart*>(part)->setParentShip(this);
}

void Starship::setHull(Hull* h) {
    if (!h || h == hull.get()) return;
    cannons.clear();
    silent_weapons.clear();
    torpedo_launcher.reset();
    wings.clear();
    replace(hull, h);
    hull->transformBoundingObject(Point4(), Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1));
}

void Starship::setReactor(Reactor* r) {
    if (r) replace(reactor, r);
}
void Starship::setTank(Tank* t) {
    if (t) replace(tank, t);
}
void Starship::setEngine(Engine* e) {
    if (e) replace(engine, e);
}
void Starship::setShield(Shield* s) {
    replace(shield, s);
}
void Starship::setCloak(Cloak* c) {
    replace(cloak, c);
}
void Starship::setRadar(Radar* r) {
    replace(radar, r);
}

void Starship::setTorpedoLauncher(TorpedoLauncher* t) {
    if (t == torpedo_launcher.get()) return;
    if (torpedo_launcher && torpedo_launcher->getParentObject())
        silent_weapons.push_back(std::move(torpedo_launcher));
    replace(torpedo_launcher, t);
}

void Starship::addCannon(Cannon* c) {
    if (c) replace(cannons.emplace_back(), c);
}

void Starship::computeTotalBoundingBox() {
    total_bbox = hull->getTotalBoundingBox();
    resetBoundingObject();
}

_BoundingObject* Starship::computeBoundingObject() const {
    return new BoundingBox(total_bbox);
}

void Starship::update(int time_diff) {
    move(time_diff);
    if (isBursting()) {
        hull->update(static_cast<unsigned int>(time_diff));
        if (!explosion->updateAnimation(time_diff)) throw StarshipFadedEvent();
    } else {
        live(time_diff);
    }
    dropLostTarget();
}

/// One frame of a ship that has not burst: its parts, its pilot, and the roll of a wreck.
void Starship::live(int time_diff) {
    hull->update(static_cast<unsigned int>(time_diff));
    runReactor(time_diff);
    runShield(time_diff);
    control->update(time_diff);
    if (vapor) leaveTrail();
    hull->getCockpit()->update();
    if (destroyed) {
        const float roll = static_cast<float>(time_diff) * wreck_roll_rate / 1000;
        setUp(getUp().rotate(getHeading(), roll));
    }
}

/// A reactor without fuel charges nothing; everything else goes on.
void Starship::runReactor(int time_diff) {
    try {
        reactor->update(time_diff);
    } catch (const TankEmptyEvent&) {
    }
}

void Starship::runShield(int time_diff) {
    if (!shield) return;
    shield->update(time_diff);
    flicker(time_diff);
}

void Starship::flicker(int time_diff) {
    if (shield_display_duration <= 0) {
        shield_display_flicker_1 = shield_display_flicker_0 = 0;
        return;
    }
    shield_display_duration -= time_diff;
    if (shield_display_flicker_1 > 0) {
        shield_display_flicker_1 -= time_diff;
        if (shield_display_flicker_1 < 0) shield_display_flicker_0 = phase(shortest_gap);
    } else {
        shield_display_flicker_0 -= time_diff;
        if (shield_display_flicker_0 < 0) shield_display_flicker_1 = phase(shortest_flash);
    }
}

void Starship::leaveTrail() const {
    VaporTrail::getInstance()->registerEffect(ColorRGBA(0.8f, 0.8f, 0.8f, 0.6f),
                                              getPosition() - getHeading() * trail_distance,
                                              trail_life, trail_start_size, trail_end_size);
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
    if (isBursting())
        drawObjectExplosion(*explosion, getPosition(),
                            getBoundingObject().getRadius() * explosion_scale);
    else if (shield && shield_display_flicker_1 > 0)
        shield->draw(mode);
}

bool Starship::isPerhapsHit(const _BoundingObject& o, float& energy) {
    if (isBursting()) return false;

    const float old_energy = energy;
    if (!isMet(o, energy)) return false;
    if (old_energy != 0 && energy == 0) return true;  // the shield has swallowed it
    return hull->isPerhapsHit(o, energy);
}

/// Whether a projectile reaches the ship at all, and what a shield leaves of its energy.
bool Starship::isMet(const _BoundingObject& o, float& energy) {
    if (!shield) return isHit(getBoundingObject(), o);
    if (!shield->testHit(o, energy)) return false;

    shield_display_duration = shield_display_time;
    shield_display_flicker_1 = phase(first_flash);
    shield_display_flicker_0 = 0;
    return true;
}

void Starship::explode(bool h) {
    hide = h;
    if (isBursting()) return;
    explosion = std::make_unique<AnimatedSprite>(
        GFX_Factory::getInstance()->getAnimatedSprite("starship_explosion"));
    soundExplosion(getPosition(), getBoundingObject().getRadius());
    showEnd();
}

void Starship::showEnd() {
    CameraManagement* cameras = CameraManagement::getInstance();
    const _GameCameraInterface* current = cameras->getCurrentCamera();
    if (current && current->getGameObject() == this) cameras->changeCamera(CAM_EXPLOSION, this);
}
