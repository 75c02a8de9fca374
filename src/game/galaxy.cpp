#include "game/galaxy.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/camera_interface.h"
#include "3d/frustum.h"
#include "3d/opengl.h"
#include "game/camera_management.h"
#include "game/control.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/game_object.h"
#include "game/laser.h"
#include "game/planet.h"
#include "game/starship.h"
#include "main/exception.h"
#include "main/joystick.h"
#include "main/log_factory.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"

#include <SDL.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr unsigned int shot_number_mask = 0xfff;

struct CameraKey {
    SDLKey key;
    CAMCHANGEenum change;
};

constexpr CameraKey camera_keys[] = {
    {SDLK_PAGEUP, CHG_NEXT_RELATED_OBJECT},
    {SDLK_PAGEDOWN, CHG_PREV_RELATED_OBJECT},
    {SDLK_F1, CHG_PLAYER_STARSHIP},
    {SDLK_F2, CHG_FIRST_STARSHIP},
    {SDLK_F3, CHG_FIRST_PLANET},
    {SDLK_F4, CHG_FIRST_TORPEDO},
    {SDLK_F5, CHG_CURR_COCKPIT},
    {SDLK_F6, CHG_CURR_LEFT_WING},
    {SDLK_F7, CHG_CURR_RIGHT_WING},
    {SDLK_F8, CHG_CURR_BACK},
};

/// The keys that turn the current camera, with Alt held.
struct TurnKey {
    void (_GameCameraInterface::*turn)(float);
    SDLKey key;
    float degrees;
};

constexpr TurnKey turn_keys[] = {
    {&_GameCameraInterface::rotateX, SDLK_PLUS, 2},
    {&_GameCameraInterface::rotateX, SDLK_KP_PLUS, 2},
    {&_GameCameraInterface::rotateX, SDLK_UP, 2},
    {&_GameCameraInterface::rotateX, SDLK_MINUS, -2},
    {&_GameCameraInterface::rotateX, SDLK_KP_MINUS, -2},
    {&_GameCameraInterface::rotateX, SDLK_DOWN, -2},
    {&_GameCameraInterface::rotateY, SDLK_LEFT, 2},
    {&_GameCameraInterface::rotateY, SDLK_RIGHT, -2},
};

/// The entry of a key table for that key, null when it has none.
template <typename Table>
auto findKey(const Table& table, SDLKey key) {
    const auto entry = std::ranges::find(table, key, [](const auto& e) { return e.key; });
    return entry != std::end(table) ? &*entry : nullptr;
}

/// Changes the camera or one of its settings. False for a key that does neither.
bool handleCameraKey(SDLKey key) {
    CameraManagement* cameras = CameraManagement::getInstance();
    if (key == SDLK_F12) {
        cameras->setAutoWeapon(!cameras->isAutoWeapon());
        return true;
    }
    const CameraKey* entry = findKey(camera_keys, key);
    if (entry) cameras->changeCamera(entry->change);
    return entry;
}

void turnCamera(SDLKey key) {
    const TurnKey* entry = findKey(turn_keys, key);
    _GameCameraInterface* camera = CameraManagement::getInstance()->getCurrentCamera();
    if (entry && camera) (camera->*entry->turn)(entry->degrees);
}

bool isInView(const _GameObject& object, const Frustum& frustum) {
    const _BoundingObject& bounds = object.getBoundingObject();
    return bounds.getType() == BOUNDING_BOX
               ? frustum.isVisible(static_cast<const BoundingBox&>(bounds))
               : frustum.isVisible(static_cast<const BoundingSphere&>(bounds));
}

/// A galaxy names its background, and how far away it is.
void checkBackground(const XMLElement& node) {
    node.getAttributeAsString("space_bg_texture");
    const int size = node.getAttributeAsInt("space_bg_size", 10);
    if (size < 0)
        throw Exception("Galaxy: attribute space_bg_size: " + std::to_string(size) + " is below 0");
}

}  // namespace

Galaxy::Galaxy(Game* g) : game(g) {}

// What was built before a faulty element goes with the galaxy.
Galaxy::Galaxy(const XMLElement& root_node, Game* g) : Galaxy(g) {
    logLine(std::cout, "GAME: ", "loading game objects...");
    if (root_node.getName() != "Galaxy")
        throw Exception("Galaxy::Galaxy: invalid game file (wrong node type)");

    for (XMLElement child = root_node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string name = child.getName();
        if (name == "Planet") add(std::make_unique<Planet>(child));
        if (name == "Starship") add(std::make_unique<Starship>(child));
    }
    checkBackground(root_node);
}

Galaxy::~Galaxy() {
    for (auto& [id, slot] : objects) remove(slot);
}

void Galaxy::add(std::unique_ptr<_GameObject> object) {
    store(*object);
    static_cast<void>(object.release());  // remove() ends it
}

void Galaxy::store(_GameObject& object) {
    auto slot = std::make_shared<_GameObject*>(&object);
    ObjectSlot& entry = objects[object.getId()];
    if (entry) remove(entry);
    entry = std::move(slot);
    object.setGalaxy(this);
}

// Whoever keeps the slot reads null before the object goes.
void Galaxy::remove(ObjectSlot& slot) {
    _GameObject* object = std::exchange(*slot, nullptr);
    const std::unique_ptr<_GameObject> owned(object == player_starship ? nullptr : object);
}

ObjectSlot Galaxy::getObjectById(int i) {
    ObjectSlot& slot = objects[i];
    if (!slot) slot = std::make_shared<_GameObject*>(nullptr);
    return slot;
}

ObjectSlot Galaxy::getObjectByLine(const _GameObject* ego, const Point4& start,
                                   const Point4& end) const {
    const ObjectSlot* nearest = nullptr;
    float nearest_distance = std::numeric_limits<float>::infinity();
    for (const auto& [id, slot] : objects) {
        const _GameObject* object = *slot;
        if (!object || object == ego) continue;

        const float distance = Vector4(start, object->getPosition()).getLength();
        if (distance < nearest_distance && object->getBoundingSphere().isIntersected(start, end)) {
            nearest = &slot;
            nearest_distance = distance;
        }
    }
    return nearest ? *nearest : ObjectSlot();
}

void Galaxy::update(int timediff) {
    for (auto entry = objects.begin(); entry != objects.end();) {
        if (*entry->second) {
            updateObject(entry->second, timediff);
            ++entry;
        } else {
            entry = objects.erase(entry);
        }
    }
}

void Galaxy::updateObject(ObjectSlot& slot, int timediff) {
    try {
        (*slot)->update(timediff);
    } catch (const LaserFiredEvent& event) {
        addLasers(event);
    } catch (const LaserFadedEvent&) {
        remove(slot);
    } catch (const TorpedoFadedEvent&) {
        remove(slot);
    } catch (const StarshipFadedEvent&) {
        if (*slot == player_starship) throw GameOverEvent("");
        remove(slot);
    }
}

void Galaxy::addLasers(const LaserFiredEvent& event) {
    std::vector<std::unique_ptr<_GameObject>> lasers;
    for (Laser* laser : event.getLasers()) lasers.emplace_back(laser);
    for (auto& laser : lasers) addShot(std::move(laser), last_laser);
}

void Galaxy::addShot(std::unique_ptr<_GameObject> shot, unsigned int& count) {
    shot->setId(static_cast<int>(++count & shot_number_mask) | shot->getType());
    add(std::move(shot));
}

void Galaxy::show() const {
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->startFrame(true);
    const DRWenum mode = gl->getDrawMode();
    const Frustum frustum = gl->getCurrentCamera()->getFrustum();
    for (const auto& [id, slot] : objects)
        if (*slot && isInView(**slot, frustum)) (*slot)->draw(mode);
    gl->endFrame();
}

LVLenum Galaxy::run(Starship* ps) {
    receive(ps);
    _Control& pilot = *ps->getControl();
    const Joystick* joystick = SDLContext::getInstance()->getJoystick();
    CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);

    for (Uint32 start_ticks = SDL_GetTicks();;) {
        if (joystick) joystick->update();
        const int duration = static_cast<int>(SDL_GetTicks() - start_ticks);

        SDL_Event event;
        if (SDLContext::getInstance()->pollEvent(event))
            if (const auto result = dispatch(event, pilot)) return *result;

        start_ticks = SDL_GetTicks();
        update(duration);
        show();
    }
}

void Galaxy::receive(Starship* ps) {
    if (player_starship && player_starship != ps) forgetPlayer();
    player_starship = ps;
    ps->setGalaxy(this);
    CameraManagement::getInstance()->setPlayerObject(ps);
    if (ps->getControl()->getType() != CTRL_PLAYER)
        throw Exception("Galaxy::run: player starship must have PlayerControl");

    const auto entry = objects.find(ps->getId());
    if (entry == objects.end() || *entry->second != ps) store(*ps);
}

// The ship is its owner's, and may be gone already.
void Galaxy::forgetPlayer() {
    for (auto& [id, slot] : objects)
        if (*slot == player_starship) *slot = nullptr;
}

std::optional<LVLenum> Galaxy::dispatch(const SDL_Event& event, _Control& pilot) {
    if (event.type == SDL_QUIT) return SYSTEM_EXIT;
    if (event.type != SDL_KEYDOWN) {
        pilot.handleEvents(event);
        return std::nullopt;
    }

    // Modifiers count as a whole: with any other one, a lock key included, the key does nothing.
    const SDL_keysym& pressed = event.key.keysym;
    if (pressed.mod == KMOD_LALT) turnCamera(pressed.sym);
    if (pressed.mod != KMOD_NONE) return std::nullopt;

    if (pressed.sym == SDLK_ESCAPE) return MENU_ACTIVATION;
    if (!handleCameraKey(pressed.sym)) pilot.handleEvents(event);
    return std::nullopt;
}
