#include "game/galaxy.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/camera_interface.h"
#include "3d/frustum.h"
#include "3d/opengl.h"
#include "3d/particle_factory.h"
#include "3d/space_bg.h"
#include "3d/vapor_trail.h"
#include "game/camera_management.h"
#include "game/cockpit.h"
#include "game/control.h"
#include "game/engine.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/game_object.h"
#include "game/game_sound.h"
#include "game/hit_test.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/mfd.h"
#include "game/part_store.h"
#include "game/planet.h"
#include "game/shield.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "game/torpedo.h"
#include "main/exception.h"
#include "main/joystick.h"
#include "main/log_factory.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"

#include <SDL.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <tuple>
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

/// Waits until a frame is as long as the pilots need it: they move their throttle in whole steps,
/// one for every 20 ms, and in shorter frames it would stay where it is.
void finishFrame(Uint32 start_ticks) {
    constexpr Uint32 least_frame_time = 20;  // milliseconds
    const Uint32 spent = SDL_GetTicks() - start_ticks;
    if (spent < least_frame_time) SDL_Delay(least_frame_time - spent);
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

/// Shows the next page on the ship's first display, if it has one.
void turnPage(const Starship& ship) {
    if (const Mfd* display = ship.getHull()->getCockpit()->getMFD(0)) display->nextClient();
}

/// Shows the instruments of the ship that the camera rides on, if it rides on one.
void drawCockpit(DRWenum mode) {
    const _GameCameraInterface* camera = CameraManagement::getInstance()->getCurrentCamera();
    const _GameObject* object = camera ? camera->getGameObject() : nullptr;
    if (const auto* ship = dynamic_cast<const Starship*>(object))
        ship->getHull()->getCockpit()->draw(mode);
}

bool isInView(const _GameObject& object, const Frustum& frustum) {
    const _BoundingObject& bounds = object.getBoundingObject();
    return bounds.getType() == BOUNDING_BOX
               ? frustum.isVisible(static_cast<const BoundingBox&>(bounds))
               : frustum.isVisible(static_cast<const BoundingSphere&>(bounds));
}

/// The kinds of objects in the order of their values.
constexpr int kinds = GO_LASER / GO_SUN + 1;

int kindOf(int type) {
    const bool known = type >= GO_SUN && type <= GO_LASER && type % GO_SUN == 0;
    if (!known) throw Exception("Galaxy::detectCollisions: invalid GameObject type");
    return type / GO_SUN;
}

template <class Object>
Object& as(const ObjectSlot& slot) {
    return static_cast<Object&>(**slot);
}

/// Lets the story of the level know, if it has one.
void tellStory(ST_EVENTenum event, int id) {
    if (StoryTeller* story = StoryTeller::getInstance())
        story->sendEvent(event, static_cast<unsigned int>(id));
}

bool touches(const ObjectSlot& object, const ObjectSlot& other) {
    return isHit((*object)->getBoundingObject(), (*other)->getBoundingObject());
}

/// How far from its position a ship can touch a planet, wherever its bounds were last built: it may
/// have taken off from another planet in the same pass.
float findReach(const Starship& ship) {
    const std::unique_ptr<const _BoundingObject> bounds(ship.computeBoundingObject());
    return bounds->getDistance(Point4()) + bounds->getRadius();
}

std::unique_ptr<SpaceBG> makeBackground(const XMLElement& node) {
    const std::string texture = node.getAttributeAsString("space_bg_texture");
    const int size = node.getAttributeAsInt("space_bg_size", 10);
    if (size < 0)
        throw Exception("Galaxy: attribute space_bg_size: " + std::to_string(size) + " is below 0");
    return std::make_unique<SpaceBG>(static_cast<float>(size), texture);
}

/// Every ship that lives in a galaxy has a shield, whatever its element names.
std::unique_ptr<Starship> makeShip(const XMLElement& node) {
    auto ship = std::make_unique<Starship>(node);
    ship->setShield(PartStore::getInstance()->getShield("Simple Shield"));
    return ship;
}

ParticleGroup* makeParticles() {
    constexpr float extent = 1000, least_size = 1, most_size = 2;
    constexpr unsigned int count = 5000;
    return ParticleFactory::getInstance()->createParticles(Point4(), extent, count, least_size,
                                                           most_size, PTCL_POINT);
}

}  // namespace

Galaxy::Galaxy(Game* g) : game(g), nobody(std::make_shared<_GameObject*>(nullptr)) {}

// What was built before a faulty element goes with the galaxy.
Galaxy::Galaxy(const XMLElement& root_node, Game* g) : Galaxy(g) {
    logLine(std::cout, "GAME: ", "loading game objects...");
    if (root_node.getName() != "Galaxy")
        throw Exception("Galaxy::Galaxy: invalid game file (wrong node type)");

    for (XMLElement child = root_node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string name = child.getName();
        if (name == "Planet") add(std::make_unique<Planet>(child));
        if (name == "Starship") add(makeShip(child));
    }
    particles = makeParticles();
    bg = makeBackground(root_node);
}

Galaxy::~Galaxy() {
    stopEngineLoop();
    for (const auto& [id, slot] : objects)
        if (*slot) remove(slot);
    if (player_starship) forget(*player_starship);  // it was refused, and never stored
    if (particles) ParticleFactory::getInstance()->deleteParticles(particles);
}

void Galaxy::add(std::unique_ptr<_GameObject> object) {
    store(*object);
    static_cast<void>(object.release());  // remove() ends it
}

void Galaxy::store(_GameObject& object) {
    adopt(object);
    auto slot = std::make_shared<_GameObject*>(&object);
    ObjectSlot& entry = objects[object.getId()];
    if (entry && *entry) remove(entry);
    entry = std::move(slot);
    grid.insert(entry);
}

void Galaxy::adopt(_GameObject& object) {
    if (object.galaxy && object.galaxy != this) object.galaxy->forget(object);
    object.setGalaxy(this);
}

// Whoever keeps the slot reads null before the object goes.
void Galaxy::remove(const ObjectSlot& slot) {
    const std::unique_ptr<_GameObject> owned(*slot == player_starship ? nullptr : *slot);
    forget(**slot);
}

void Galaxy::lose(const ObjectSlot& ship) {
    const int id = (*ship)->getId();
    remove(ship);
    tellStory(DESTROYED, id);
}

void Galaxy::forget(_GameObject& object) {
    const auto entry = objects.find(object.getId());
    if (entry != objects.end() && *entry->second == &object) *entry->second = nullptr;
    grid.erase(object);
    object.setGalaxy(nullptr);
    if (&object == player_starship) player_starship = nullptr;
}

ObjectSlot Galaxy::getObjectById(int i) const {
    const auto entry = objects.find(i);
    return entry == objects.end() ? nobody : entry->second;
}

ObjectSlot Galaxy::getObjectByLine(const _GameObject* ego, const Point4& start,
                                   const Point4& end) const {
    const ObjectGrid::Entry* nearest = nullptr;
    float nearest_distance = 0;
    grid.findAlong(start, end, along_line);
    for (const ObjectGrid::Entry* entry : along_line) {
        if (entry->object == ego) continue;

        const float distance = Vector4(start, entry->object->getPosition()).getLength();
        // A distance may be beyond all numbers: then, too, somebody is hit.
        const bool nearer = !nearest || distance < nearest_distance ||
                            (!(distance > nearest_distance) && entry->id < nearest->id);
        if (nearer && entry->object->getBoundingSphere().isIntersected(start, end)) {
            nearest = entry;
            nearest_distance = distance;
        }
    }
    return nearest ? *nearest->slot : ObjectSlot();
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
    VaporTrail::getInstance()->update(static_cast<unsigned int>(timediff));
}

void Galaxy::updateObject(const ObjectSlot& slot, int timediff) {
    try {
        (*slot)->update(timediff);
    } catch (const LaserFiredEvent& event) {
        addLasers(event);
    } catch (const TorpedoFiredEvent& event) {
        addTorpedo(event);
    } catch (const LaserFadedEvent&) {
        remove(slot);
    } catch (const TorpedoFadedEvent&) {
        remove(slot);
    } catch (const StarshipFadedEvent&) {
        if (*slot == player_starship) throw GameOverEvent("");
        lose(slot);
    }
}

void Galaxy::addLasers(const LaserFiredEvent& event) {
    std::vector<std::unique_ptr<_GameObject>> lasers;
    for (Laser* laser : event.getLasers()) lasers.emplace_back(laser);
    for (auto& laser : lasers) addShot(std::move(laser), last_laser);
}

void Galaxy::addTorpedo(const TorpedoFiredEvent& event) {
    addShot(std::unique_ptr<_GameObject>(event.getTorpedo()), last_torpedo);
}

void Galaxy::addShot(std::unique_ptr<_GameObject> shot, unsigned int& count) {
    shot->setId(static_cast<int>(++count & shot_number_mask) | shot->getType());
    add(std::move(shot));
}

bool Galaxy::detectCollisions() {
    bool stop_time = false;
    near_pairs.start(objects);
    while (const NearPairs::Pair* pair = near_pairs.next()) {
        if (!collide(*pair->first, *pair->second)) continue;
        stop_time = true;
        const bool both_there = **pair->first && **pair->second;
        if (both_there) near_pairs.restart();  // the player's ship has moved
    }
    return stop_time;
}

bool Galaxy::collide(const ObjectSlot& first, const ObjectSlot& second) {
    const Rule rule = findRule((*first)->getType(), (*second)->getType());
    if (!rule) return false;
    try {
        return (this->*rule)(first, second);
    } catch (const DestroyEvent&) {
        logLine(std::cerr, "WARNING (GAME): ",
                "Galaxy::detectCollisions: DestroyEvent in this method is obsolete");
        return false;
    }
}

Galaxy::Rule Galaxy::findRule(int first_type, int second_type) {
    using Rules = std::array<std::array<Rule, kinds>, kinds>;
    static const Rules rules = [] {
        Rules table{};
        for (const auto& [first, second, rule] : std::initializer_list<std::tuple<int, int, Rule>>{
                 {GO_PLANET, GO_STARSHIP, &Galaxy::approachShip},
                 {GO_PLANET, GO_TORPEDO, &Galaxy::stopTorpedo},
                 {GO_PLANET, GO_LASER, &Galaxy::stopLaser},
                 {GO_STARSHIP, GO_PLANET, &Galaxy::approachPlanet},
                 {GO_STARSHIP, GO_STARSHIP, &Galaxy::crash},
                 {GO_STARSHIP, GO_TORPEDO, &Galaxy::hit<Torpedo>},
                 {GO_STARSHIP, GO_LASER, &Galaxy::hit<Laser>},
                 {GO_TORPEDO, GO_PLANET, &Galaxy::swapped<&Galaxy::stopTorpedo>},
                 {GO_TORPEDO, GO_STARSHIP, &Galaxy::swapped<&Galaxy::hit<Torpedo>>},
                 {GO_TORPEDO, GO_TORPEDO, &Galaxy::setOffBoth},
                 {GO_TORPEDO, GO_LASER, &Galaxy::shootDown},
                 {GO_LASER, GO_PLANET, &Galaxy::swapped<&Galaxy::stopLaser>},
                 {GO_LASER, GO_STARSHIP, &Galaxy::swapped<&Galaxy::hit<Laser>>},
                 {GO_LASER, GO_TORPEDO, &Galaxy::swapped<&Galaxy::shootDown>},
             })
            table[kindOf(first)][kindOf(second)] = rule;
        return table;
    }();
    const int first = kindOf(first_type);
    const int second = second_type / GO_SUN;
    return second < kinds && second_type % GO_SUN == 0 ? rules[first][second] : nullptr;
}

template <Galaxy::Rule rule>
bool Galaxy::swapped(const ObjectSlot& first, const ObjectSlot& second) {
    return (this->*rule)(second, first);
}

bool Galaxy::approachShip(const ObjectSlot& planet, const ObjectSlot& ship) {
    constexpr float climb = 50, take_off_velocity = 10;
    if (!touches(ship, planet)) return false;
    if (!land(ship, as<Planet>(planet), climb)) return true;

    player_starship->setHeading(player_starship->getOrientation());
    player_starship->setVelocity(take_off_velocity);
    player_starship->getControl()->reset();
    tellStory(LANDED_ON, (*planet)->getId());
    return true;
}

bool Galaxy::approachPlanet(const ObjectSlot& ship, const ObjectSlot& planet) {
    constexpr float climb = 100;
    if (!touches(ship, planet)) return false;
    if (land(ship, as<Planet>(planet), climb)) tellStory(LANDED_ON, (*planet)->getId());
    return true;
}

bool Galaxy::land(const ObjectSlot& ship, const Planet& planet, float climb) {
    if (*ship != player_starship) {
        lose(ship);
        return false;
    }
    planet.run();
    takeOff(planet, climb);
    return true;
}

void Galaxy::takeOff(const Planet& planet, float climb) {
    constexpr float clearance = 1;
    Vector4 away(planet.getPosition(), player_starship->getPosition());
    const float height = away.getLength();
    const float clear_height =
        NearPairs::findReach(planet) + findReach(*player_starship) + clearance;
    if (height == 0) away = player_starship->getOrientation();

    player_starship->setOrientation(away.normalize());
    player_starship->setPosition(player_starship->getPosition() +
                                 away * std::max(climb, clear_height - height));
}

bool Galaxy::stopTorpedo(const ObjectSlot& planet, const ObjectSlot& torpedo) {
    if (touches(torpedo, planet)) as<Torpedo>(torpedo).destroy();
    return false;
}

bool Galaxy::stopLaser(const ObjectSlot& planet, const ObjectSlot& laser) {
    if (touches(laser, planet)) remove(laser);
    return false;
}

bool Galaxy::crash(const ObjectSlot& ship, const ObjectSlot& other) {
    float no_energy = 0;
    if (!as<Starship>(ship).isPerhapsHit((*other)->getBoundingObject(), no_energy)) return false;
    as<Starship>(ship).explode(true);
    as<Starship>(other).explode(true);
    return false;
}

template <class Shot>
bool Galaxy::hit(const ObjectSlot& ship, const ObjectSlot& shot) {
    as<Starship>(ship).isPerhapsHit((*shot)->getBoundingObject(), as<Shot>(shot).getEnergy());
    return false;
}

bool Galaxy::setOffBoth(const ObjectSlot& torpedo, const ObjectSlot& other) {
    if (!touches(torpedo, other)) return false;
    as<Torpedo>(torpedo).destroy();
    as<Torpedo>(other).destroy();
    return false;
}

bool Galaxy::shootDown(const ObjectSlot& torpedo, const ObjectSlot& laser) {
    if (!touches(torpedo, laser)) return false;
    as<Torpedo>(torpedo).destroy();
    remove(laser);
    return false;
}

void Galaxy::show() const {
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->startFrame(true);
    const DRWenum mode = gl->getDrawMode();
    if (bg) bg->draw(mode);
    if (const _CameraInterface* camera = gl->getCurrentCamera()) {
        const Frustum frustum = camera->getFrustum();
        for (const auto& [id, slot] : objects)
            if (*slot && isInView(**slot, frustum)) (*slot)->draw(mode);
    }
    drawCockpit(mode);
    gl->endFrame();
}

LVLenum Galaxy::run(Starship* ps) {
    receive(ps);
    startEngineLoop(ps->getEngine()->getSound());
    _Control& pilot = *ps->getControl();
    const Joystick* joystick = SDLContext::getInstance()->getJoystick();
    CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);

    for (Uint32 start_ticks = SDL_GetTicks();;) {
        if (joystick) joystick->update();
        muteEngineLoop();
        const int duration = static_cast<int>(SDL_GetTicks() - start_ticks);

        SDL_Event event;
        if (SDLContext::getInstance()->pollEvent(event))
            if (const auto result = dispatch(event, pilot)) return *result;

        start_ticks = SDL_GetTicks();
        update(duration);
        if (detectCollisions())
            start_ticks = SDL_GetTicks();  // a landing takes no time of the game
        show();
        finishFrame(start_ticks);
    }
}

void Galaxy::receive(Starship* ps) {
    if (player_starship && player_starship != ps) forget(*player_starship);
    adopt(*ps);
    player_starship = ps;
    CameraManagement::getInstance()->setPlayerObject(ps);
    if (ps->getControl()->getType() != CTRL_PLAYER)
        throw Exception("Galaxy::run: player starship must have PlayerControl");

    if (*getObjectById(ps->getId()) != ps) store(*ps);
}

void Galaxy::startEngineLoop(const std::string& sound) {
    constexpr short no_loudness = 0;
    constexpr int for_ever = -1;
    stopEngineLoop();
    const int channel =
        GameSound::getInstance()->playSound(SND_ENGINE, sound, no_loudness, for_ever);
    if (channel >= 0) engine_channel = channel;
}

void Galaxy::muteEngineLoop() const {
    if (engine_channel) GameSound::getInstance()->setChannelVolume(*engine_channel, 0);
}

void Galaxy::stopEngineLoop() {
    if (engine_channel) GameSound::getInstance()->freeChannel(*engine_channel);
    engine_channel.reset();
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
    if (pressed.sym == SDLK_MINUS)
        turnPage(*pilot.getParentShip());
    else if (!handleCameraKey(pressed.sym))
        pilot.handleEvents(event);
    return std::nullopt;
}
