#include "game/starship.h"

#include <gtest/gtest.h>

#include "3d/bounding_sphere.h"
#include "game/control.h"
#include "game/galaxy.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/tank.h"
#include "tests/support/failure.h"
#include "tests/support/ship_yard.h"

namespace {

const std::string wing = "<WingConfig type='wing'/>";
const std::string armed_wing = "<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>";

/// A ship's element with one piece of its text replaced.
std::string changed(const std::string& piece, const std::string& by) {
    std::string xml = ShipYard::shipElement();
    return xml.replace(xml.find(piece), piece.size(), by);
}

void press(const Starship& ship, SDLKey key) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    ship.getControl()->handleEvents(event);
}

TEST(Starship, IsBuiltAsItsElementSays) {
    ShipYard yard;
    const Starship east(yard.element(changed("orientation='V(0|0|1)'", "orientation='V(1|0|0)'")));
    EXPECT_EQ(east.getId(), 20483);
    EXPECT_EQ(east.getControl()->getType(), CTRL_AI_STATIC);
    EXPECT_EQ(east.getHeading(), Vector4(1, 0, 0, 1)) << "none given: where it faces";
    const Starship sideways(yard.element(changed(" up=", " heading='V(0|3|0)' up=")));
    EXPECT_EQ(sideways.getHeading(), Vector4(0, 1, 0, 1));
}

TEST(Starship, RefusesFaultyElements) {
    ShipYard yard;
    const std::string three_wings = wing + armed_wing + wing;
    const std::string full = wing + wing + "<CannonConfig type='cannon'/>";
    const auto with = [](const std::string& child) { return changed("></", ">" + child + "</"); };
    for (const auto& [ship, message] :
         {std::pair<std::string, std::string>  //
          {"<Raft id='1'/>", "Starship::Starship: invalid game file (wrong node type)"},
          {changed(" up='V(0|1|0)'", ""), "no such attribute: up"},
          {changed("'tank'", "'x'"), "PartStore::getPart: no such part (x)"},
          {changed("'hull'", "'wing'"), "PartStore::getHull: wing is not a hull"},
          {changed("'engine'", "'wing'"), "PartStore::getEngine: wing is not an engine"},
          {changed("'reactor'", "'wing'"), "PartStore::getReactor: wing is not a reactor"},
          {changed("'tank'", "'wing'"), "PartStore::getTank: wing is not a tank"},
          {with("<WingConfig type='hull'/>"), "PartStore::getWing: hull is not a wing"},
          {with("<CannonConfig type='hull'/>"), "PartStore::getCannon: hull is not a cannon"},
          {with("<Sail/>"), "Starship::Starship: invalid XML subobject for hull (Sail)"},
          {with("<WingConfig type='wing'><Sail/></WingConfig>"),
           "Starship::Starship: invalid XML subobject for wing (Sail)"},
          {with(three_wings), "_3D_Rep: invalid slot"},
          {with(full), "_3D_Rep: invalid slot"}})
        EXPECT_EQ(failureOf([&, &ship = ship] { Starship(yard.element(ship)); }), message);
}

// Weapons on the hull are there to be seen and hit; those on the wings fire, from where they are.
TEST(Starship, FiresTheCannonsOfItsWings) {
    ShipYard yard;
    const auto ship = yard.ship("<UserControl/><CannonConfig type='cannon'/>" + armed_wing);
    press(*ship, SDLK_RETURN);
    try {
        ship->update(0);
        FAIL() << "no shot";
    } catch (const LaserFiredEvent& shot) {
        ASSERT_EQ(shot.getLasers().size(), 1u);
        const std::unique_ptr<Laser> laser(shot.getLasers().front());
        EXPECT_EQ(laser->getPosition(), Point4(4, 1, 29, 1));
    }
}

// A shot meets the outermost part first, wherever the ship stands, and spends all its energy on it.
TEST(Starship, TakesHitsFromOutsideIn) {
    ShipYard yard;
    const auto ship = yard.ship(armed_wing + wing);
    ship->setPosition(Point4(100, 0, 0, 1));
    ship->setOrientation(Vector4(1, 0, 0, 1));
    ship->update(0);
    const _3D_Rep& hull = *ship->getHull();
    const _3D_Rep &first = *hull.getSlot(0).item, &second = *hull.getSlot(2).item;
    for (const auto& [at, victim] : {std::pair<Point4, const _3D_Rep*>  //
                                     {Point4(104, 0, 0, 1), first.getSlot(0).item},
                                     {Point4(100, 0, 4, 1), &first},
                                     {Point4(100, 1, -4, 1), &second},
                                     {Point4(100, 0, 0, 1), &hull},
                                     {Point4(104, 0, 4, 1), nullptr}}) {
        float energy = 10;
        EXPECT_EQ(ship->isPerhapsHit(BoundingSphere(at, 0.5f), energy), victim != nullptr) << at;
        EXPECT_EQ(energy, victim ? 0 : 10) << at;
        EXPECT_EQ(victim ? victim->getIntegrity() : 90, 90) << at << " hit once";
    }
}

// One broken part dooms the ship: it loses its pilot and rolls. When the explosion has climbed to
// the hull the whole ship bursts; nothing can hit it any more, and it leaves the world.
TEST(Starship, DiesOfABrokenPart) {
    ShipYard yard;
    const auto ship = yard.ship("<UserControl/>" + armed_wing);
    CameraManagement& cameras = *CameraManagement::getInstance();
    cameras.changeCamera(CAM_STARSHIP, ship->getCameras(), CPOS_LEFT);
    const BoundingSphere shot(Point4(), 5);
    float energy = 100;
    EXPECT_TRUE(ship->isPerhapsHit(shot, energy));
    EXPECT_EQ(cameras.getCurrentCameraType(), CAM_EXPLOSION) << "seen from outside";

    press(*ship, SDLK_d);
    ship->update(500);
    EXPECT_EQ(ship->getOrientation(), Vector4(0, 0, 1, 1)) << "nobody steers";
    EXPECT_NEAR(ship->getUp().x, 0.7071f, 1e-4f) << "90 degrees per second";
    EXPECT_FALSE(ship->isPerhapsHit(shot, energy = 1)) << "bursting";
    EXPECT_THROW(ship->update(20), StarshipFadedEvent);
}

// A dry tank takes the pilot away, and nothing else.
TEST(Starship, DriftsOnWithoutFuel) {
    ShipYard yard;
    const auto ship = yard.ship();
    ship->getTank()->drawFuel(1000);
    ship->setVelocity(10);
    ship->update(1000);
    EXPECT_EQ(ship->getPosition(), Point4(0, 0, 10, 1));
}

// A target that is too far away to be shot at is no target any more.
TEST(Starship, LosesATargetOutOfRange) {
    ShipYard yard;
    const std::string ships = changed("></", "><UserControl/></") + changed("'3'", "'4'");
    Galaxy galaxy(
        yard.element("<Galaxy space_bg_texture='' space_bg_size='1'>" + ships + "</Galaxy>"),
        nullptr);
    auto& hunter = dynamic_cast<Starship&>(**galaxy.getObjectById(GO_STARSHIP | 3));
    const ObjectSlot prey = galaxy.getObjectById(GO_STARSHIP | 4);
    press(hunter, SDLK_SPACE);
    for (const auto& [distance, kept] : {std::pair(300.f, true), {1000.f, true}, {1001.f, false}}) {
        (*prey)->setPosition(Point4(0, 0, distance, 1));
        hunter.update(0);
        EXPECT_EQ(hunter.getSelectedObject(), kept ? prey : nullptr) << distance;
    }
}

}  // namespace
