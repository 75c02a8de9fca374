#include "game/starship.h"

#include "3d/bounding_sphere.h"
#include "game/control.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/torpedo_launcher.h"
#include "tests/support/pilots.h"
#include "tests/support/view.h"

namespace {

const std::string wing = "<WingConfig type='wing'/>";
const std::string armed_wing = "<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>";

/// What stands at (x, y, 0), seen from straight ahead.
std::array<int, 3> seen(const _Drawable& drawable, float x, float y) {
    return seenFrom(Point4(0, 0, 30, 1), Vector4(0, 1, 0, 1), Point4(x, y, 0, 1), drawable);
}

constexpr std::array black{0, 0, 0};

/// A ship's element with one piece of its text replaced.
std::string changed(const std::string& piece, const std::string& by) {
    std::string xml = ShipYard::shipElement();
    return xml.replace(xml.find(piece), piece.size(), by);
}

TEST(Starship, IsBuiltAsItsElementSays) {
    ShipYard yard;
    const Starship east(yard.element(changed("orientation='V(0|0|1)'", "orientation='V(1|0|0)'")));
    EXPECT_EQ(east.getHeading(), Vector4(1, 0, 0, 1)) << "none given: where it faces";
    const Starship sideways(yard.element(changed(" up=", " heading='V(0|3|0)' up=")));
    EXPECT_EQ(sideways.getHeading(), Vector4(0, 1, 0, 1));
    const auto orbiter = yard.ship("<UserControl/><AICircleControl center='P(9|0|0)' speed='7'/>");
    EXPECT_EQ(orbiter->getVelocity(), 7) << "the last pilot named";
}

TEST(Starship, RefusesFaultyElements) {
    ShipYard yard;
    const auto with = [](const std::string& child) { return changed("></", ">" + child + "</"); };
    for (const auto& [ship, message] :
         {std::pair<std::string, std::string>  //
          {changed(" up='V(0|1|0)'", ""), "no such attribute: up"},
          {changed("'tank'", "'x'"), "PartStore::getPart: no such part (x)"},
          {changed("(0|1|0)", "(0|0|0)"), "Starship: attribute up: V(0|0|0) has no direction"},
          {changed("'reactor'", "'wing'"), "PartStore::getReactor: wing is not a reactor"},
          {with("<WingConfig type='wing'><Sail/></WingConfig>"),
           "Starship::Starship: invalid XML subobject for wing (Sail)"},
          {with(wing + armed_wing + wing), "_3D_Rep: invalid slot"}})
        EXPECT_EQ(failureOf([&, &ship = ship] { Starship(yard.element(ship)); }), message);
}

// Launchers on the hull are silent, and of the others the first one fires; its reach is the ship's.
TEST(Starship, LaunchesFromTheFirstLauncherOfItsWings) {
    ShipYard yard;
    const std::string launcher = "<TorpedoLauncherConfig type='launcher'/>";
    const auto ship =
        yard.ship(launcher + "<WingConfig type='wing'>" + launcher + launcher + "</WingConfig>");
    EXPECT_EQ(ship->getTorpedoLauncher()->getPosition(), Point4(4, 1, 4, 1));
    EXPECT_EQ(ship->getTorpedoRange(), 400);
}

// A shield takes what it can, and all of a shot that is too weak for it. What is left goes on to
// the parts, as does what had no energy to begin with.
TEST(Starship, IsShielded) {
    ShipYard yard;
    Starship ship(yard.element(changed("></", " shield='Simple Shield'>" + wing + wing + "</")));
    const float reach = ship.getBoundingSphere().getRadius() * 1.1f;
    const std::tuple<float, float, bool, float, float> shots[] = {
        {reach + 0.6f, 10, false, 10, 100},
        {reach + 0.4f, 4, true, 0, 100},
        {reach + 0.4f, 9, false, 3, 100},
        {0, 0, true, 0, 100},
        {0, 30, true, 0, 70}};
    for (const auto& [z, energy, hit, left, integrity] : shots) {
        float e = energy;
        EXPECT_EQ(ship.isPerhapsHit(BoundingSphere(Point4(0, 0, z, 1), 0.5f), e), hit) << energy;
        EXPECT_EQ(e, left) << energy;
        EXPECT_EQ(ship.getHull()->getIntegrity(), integrity) << energy;
    }
}

// The big explosion is 15 times as wide as the ship's radius. It stands behind the front of the
// hull, unless two ships have run into each other: then the hull is gone at once.
TEST(Starship, BurstsInABigExplosion) {
    ShipYard yard;
    const auto ship = yard.ship();
    const float edge = ship->getBoundingObject().getRadius() * 7.5f;
    const std::array hull = seen(*ship, 0, 0), red{255, 1, 1};
    ship->explode(false);
    EXPECT_EQ(seen(*ship, 0, edge - 0.2f), red);
    EXPECT_EQ(seen(*ship, 0, edge + 0.2f), black);
    EXPECT_EQ(seen(*ship, 0, 0), hull);
    ship->update(4040);
    ship->explode(true);
    EXPECT_EQ(seen(*ship, 0, 0), black) << "the series is over, and not started anew";
    EXPECT_THROW(ship->update(1), StarshipFadedEvent);
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
    const std::pair<Point4, const _3D_Rep*> victims[] = {
        {Point4(104, 0, 0, 1), first.getSlot(0).item},
        {Point4(100, 0, 4, 1), &first},
        {Point4(100, 1, -4, 1), &second},
        {Point4(100, 0, 0, 1), &hull},
        {Point4(104, 0, 4, 1), nullptr}};
    for (const auto& [at, victim] : victims) {
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

    ship->getControl()->handleEvents(ShipYard::key(SDLK_d));
    ship->update(500);
    EXPECT_EQ(ship->getOrientation(), Vector4(0, 0, 1, 1)) << "nobody steers";
    EXPECT_NEAR(ship->getUp().x, 0.7071f, 1e-4f) << "90 degrees per second";
    EXPECT_TRUE(ship->isPerhapsHit(shot, energy = 1)) << "doomed, not gone";
    ship->update(5000);
    EXPECT_FALSE(ship->isPerhapsHit(shot, energy = 1)) << "bursting";
    ship->update(4040);
    EXPECT_THROW(ship->update(1), StarshipFadedEvent);
}

}  // namespace
