#include "game/galaxy.h"

#include "3d/color_rgba.h"
#include "3d/opengl.h"
#include "3d/vapor_trail.h"
#include "game/control.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/planet.h"
#include "game/shield.h"
#include "game/torpedo.h"
#include "game/world.h"
#include "tests/support/events.h"
#include "tests/support/failure.h"
#include "tests/support/landing.h"
#include "tests/support/probe.h"
#include "tests/support/ship_yard.h"
#include "tests/support/tiny_game.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// A galaxy whose time passes at a test's command.
struct SteppedGalaxy : Galaxy {
    explicit SteppedGalaxy(const XMLElement& element) : Galaxy(element, nullptr) {}
    using Galaxy::detectCollisions, Galaxy::show, Galaxy::update;
    /// An object that nothing collides with.
    Probe* put(int id, float x = 0, float z = 0, GAMEOBJenum type = GO_SUN) {
        return put(std::make_unique<Probe>(id, x, z, type));
    }
    template <class Object>
    Object* put(std::unique_ptr<Object> object) {
        Object* placed = object.get();
        add(std::move(object));
        return placed;
    }
    /// Takes a shot in as if a ship had fired it.
    template <class Fired, class Shot>
    Shot* shoot(Shot* shot, const Point4& position) {
        shot->setPosition(position);
        shot->setVelocity(0);
        put(1)->deed = [shot] { throw Fired({shot}); };
        update(0);
        put(1);
        return shot;
    }
};

struct GalaxyTest : testing::Test {
    GalaxyTest() { OpenGLContext::getInstance()->setShowFPS(false); }  // there are no fonts
    ~GalaxyTest() override { OpenGLContext::getInstance()->setShowFPS(true); }

    /// Flies with keys and modifiers pressed ahead, one for each frame, and closes the window.
    LVLenum run(std::vector<std::pair<SDLKey, int>> keys) {
        events::flush();
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        for (auto [key, modifier] : keys) {
            event.key.keysym.sym = key;
            event.key.keysym.mod = static_cast<SDLMod>(modifier);
            SDL_PushEvent(&event);
        }
        events::push(SDL_QUIT);
        return galaxy.run(player.get());
    }

    ShipYard yard;
    const TempDir dir;
    XMLElement empty =
        yard.element("<Galaxy space_bg_size='100' space_bg_texture='" +
                     dir.write("sky.ppm", picture::ppm(1, 1, "\xff\x11\x11")) + "'/>");
    SteppedGalaxy galaxy{empty};
    std::unique_ptr<Starship> player = yard.ship("<UserControl/>");
};

TEST_F(GalaxyTest, ShotsJoinTheSweepAndNumberUpTo4096) {
    galaxy.put(5)->deed = [] {
        const Vector4 ahead(0, 0, 1, 1), up(0, 1, 0, 1);
        throw LaserFiredEvent({new Laser(nullptr, 100, Point4(), ahead, up, 100)});
    };
    const auto vapor = VaporTrail::getInstance()->registerEffect(ColorRGBA(), Point4(), 900, 1, 1);
    galaxy.update(500);
    EXPECT_EQ(vapor->life, 400);
    const ObjectSlot first = galaxy.getObjectById(0x7001);
    EXPECT_EQ((*first)->getPosition().z, 50);
    while (galaxy.getNumLasers() < 4096) galaxy.update(0);
    EXPECT_NE(*galaxy.getObjectById(0x7000), nullptr);
    EXPECT_NE(*first, nullptr);
    galaxy.update(0);
    EXPECT_EQ(*first, nullptr) << "replaced, and never another's";
    EXPECT_NE(*galaxy.getObjectById(0x7001), nullptr);
}

TEST_F(GalaxyTest, FadedObjectsGoAndKeptSlotsReadNull) {
    galaxy.put(1)->deed = [] { throw StarshipFadedEvent(); };
    galaxy.put(2)->deed = [] { throw TorpedoFadedEvent(); };
    galaxy.put(3)->deed = [] { throw LaserFadedEvent(); };
    std::vector<ObjectSlot> kept;
    for (int id : {1, 2, 3, 4}) kept.push_back(galaxy.getObjectById(id));
    galaxy.update(1);
    for (int id : {1, 2, 3, 4}) galaxy.put(id);
    {
        SteppedGalaxy ended(empty);
        ended.put(1);
        kept.push_back(ended.getObjectById(1));
    }
    for (const ObjectSlot& slot : kept) EXPECT_EQ(*slot, nullptr);
    galaxy.put(5)->deed = [] { throw GameEvent(); };
    EXPECT_THROW(galaxy.update(1), GameEvent) << "what no rule knows travels on";
}

TEST_F(GalaxyTest, LineFindsTheNearestObject) {
    const Probe* far = galaxy.put(1, 0, 80);
    const Probe* near = galaxy.put(2, 0.5, 50);
    galaxy.put(3, -0.5, 50);  // as near: the lower id is found
    galaxy.put(4, 5, 10);
    const Probe* own = galaxy.put(5);
    galaxy.getObjectById(6);  // an entry without an object
    const Point4 start(0, 0, -20, 1);
    EXPECT_EQ(*galaxy.getObjectByLine(own, start, Point4(0, 0, 100, 1)), near);
    EXPECT_EQ(*galaxy.getObjectByLine(far, start, Point4(0, 0, 100, 1)), own);
    EXPECT_EQ(galaxy.getObjectByLine(own, start, Point4(0, 0, 40, 1)), nullptr);

    const Point4 end(0, 0, 3e19f, 1);  // so far that the distance is no longer finite
    Probe* beyond = galaxy.put(6, 0, end.z);
    EXPECT_EQ(*galaxy.getObjectByLine(own, start, end), beyond);
}

TEST_F(GalaxyTest, LoadsPlanetsAndShips) {
    const std::string planet = "<Planet id='1' name='' pos='P(0|0|0)' velocity='0'" + yard.body();
    const std::string children = "<X/>" + planet + "/>" + planet + "/>" + ShipYard::shipElement();
    SteppedGalaxy loaded(yard.element(yard.galaxyElement(children)));
    EXPECT_EQ((*loaded.getObjectById(0x2001))->getGalaxy(), &loaded);
    const auto* ship = static_cast<Starship*>(*loaded.getObjectById(0x5003));
    EXPECT_EQ(ship->getShield()->getMaxEnergy(), 20u) << "the simple one";
    const XMLElement faulty = yard.element("<Galaxy>" + children + "</Galaxy>");
    EXPECT_EQ(failureOf([&] { SteppedGalaxy{faulty}; }), "no such attribute: space_bg_texture");
}

TEST_F(GalaxyTest, LevelsHaveGalaxiesOfTheirOwnAndPlaceTheShip) {
    const std::string sky = "<Galaxy id='4'" + yard.galaxyElement().substr(7);
    World::init(yard.element("<WorldSection><Universe id='2'/><Heaven id='7'/><Universe id='2'>    "
                             "                         " +
                             sky + "</Universe></WorldSection>"),
                nullptr);
    EXPECT_NE(World::getInstance()->getGalaxies(2).at(4),
              World::getInstance()->getGalaxies(2).at(4));
    const auto load = [&](const std::string& place) {
        Level(yard.element("<Level user_starship_position='P(1|2|3)' user_starship_up='V(1|0|0)' "
                           "user_starship_orientation='V(0|0|-1)' " +
                           place + "><Soundtrack file='a'/><StoryTeller/></Level>"),
              player.get());
    };
    load("universe_id='2' start_galaxy='4'");
    EXPECT_EQ(player->getPosition(), Point4(1, 2, 3, 1));
    EXPECT_EQ(player->getHeading(), Vector4(0, 0, -1, 1));
    EXPECT_EQ(player->getUp(), Vector4(1, 0, 0, 1));
    EXPECT_EQ(failureOf([&] { load("universe_id='7'"); }),
              "World::getUniverse: invalid game file (wrong node type (Universe))");
    EXPECT_EQ(failureOf([&] { load("universe_id='2' start_galaxy='5'"); }),
              "Level::Level: start galaxy doesn't exist (id 5)");
    World::getInstance()->destroy();
}

TEST_F(GalaxyTest, RunEndsByEscapeOrWindowCloseAndKeepsTheShip) {
    const Probe* actor = galaxy.put(1);
    EXPECT_EQ(run({{SDLK_ESCAPE, KMOD_LSHIFT}, {SDLK_ESCAPE, KMOD_NUM}, {SDLK_F3, 0}}),
              SYSTEM_EXIT);
    EXPECT_EQ(actor->updated, 3) << "one event for each frame";
    EXPECT_EQ(CameraManagement::getInstance()->getCurrentCamera(), actor->getCamera(CPOS_FRONT));
    const ObjectSlot slot = galaxy.getObjectById(player->getId());
    EXPECT_EQ(*slot, player.get());
    EXPECT_EQ(run({{SDLK_UP, KMOD_LALT}, {SDLK_UP, 0}, {SDLK_F6, 0}, {SDLK_ESCAPE, 0}}),
              MENU_ACTIVATION);
    EXPECT_EQ(player->getControl()->getThrottle(), 10);
    EXPECT_EQ(CameraManagement::getInstance()->getCurrentCamera(), player->getCamera(CPOS_LEFT));
    EXPECT_EQ(galaxy.getObjectById(player->getId()), slot) << "taken in once";
    player = yard.ship();
    EXPECT_EQ(failureOf([&] { run({}); }), "Galaxy::run: player starship must have PlayerControl");
}

TEST_F(GalaxyTest, DrawsWhatIsInViewUntilThePlayerIsLost) {
    const Probe* ahead = galaxy.put(1, 0, 100);
    const Probe* behind = galaxy.put(0x7fff, 0, -100);
    run({});
    galaxy.show();
    EXPECT_EQ(ahead->drawn, 1);
    EXPECT_EQ(behind->drawn, 0);
    EXPECT_EQ(readPixel(1, 1), (std::array{0xff, 0x11, 0x11})) << "the sky";
    player->explode(false);
    EXPECT_THROW(galaxy.update(1000000), GameOverEvent);
    EXPECT_EQ(behind->updated, 0) << "nobody behind the ship is updated";
    EXPECT_EQ(*galaxy.getObjectById(player->getId()), player.get());
}

struct CollisionTest : GalaxyTest {
    Starship* ship(const std::string& id, const Point4& position) {
        std::string text = ShipYard::shipElement();
        auto made = std::make_unique<Starship>(
            yard.element(text.replace(text.find("'3'"), 3, "'" + id + "'")));
        made->setPosition(position);
        return galaxy.put(std::move(made));
    }
    /// A planet at the origin that is touched up to 120 units away.
    Planet* planet(const std::string& id) {
        return galaxy.put(std::make_unique<Planet>(
            yard.element("<Planet id='" + id + "' name='Rock' pos='P(0|0|0)' velocity='0' rep3d='" +
                         dir.write("rock.ASE", boxModel(100)) + "'/>")));
    }
    Laser* laser(float x) {
        const Vector4 ahead(0, 0, 1, 1), up(0, 1, 0, 1);
        return galaxy.shoot<LaserFiredEvent>(new Laser(nullptr, 50, Point4(), ahead, up, 0),
                                             Point4(x, 0, 0, 1));
    }
    Torpedo* torpedo(float x) {
        return galaxy.shoot<TorpedoFiredEvent>(PartStore::getInstance()->getTorpedo("torpedo"),
                                               Point4(x, 0, 0, 1));
    }

    const int torpedoes = yard.load(
        "<Torpedo name='torpedo' mass='1' size='1' power='30' speed='200' range='2000' "
        "cloak_cat='0' lose_dist='0'/>");
};

TEST_F(CollisionTest, ShotsAndShipsEndByWhatTheyTouch) {
    planet("1");
    laser(119);
    const Torpedo* crashed = torpedo(-119);
    EXPECT_FALSE(galaxy.detectCollisions());
    EXPECT_EQ(*galaxy.getObjectById(0x7001), nullptr);
    EXPECT_EQ(crashed->getTTL(), 0) << "bursts with its next update";

    const Torpedo* first = torpedo(200);
    const Torpedo* second = torpedo(202);
    const Torpedo* target = torpedo(300);
    laser(301);
    laser(330);
    EXPECT_FALSE(galaxy.detectCollisions());
    for (const Torpedo* gone : {first, second, target}) EXPECT_EQ(gone->getTTL(), 0);
    EXPECT_EQ(*galaxy.getObjectById(0x7002), nullptr);
    EXPECT_NE(*galaxy.getObjectById(0x7003), nullptr) << "touches nothing";

    const Starship* hit = ship("7", Point4(400, 0, 0, 1));
    Laser* spent = laser(400);
    EXPECT_FALSE(galaxy.detectCollisions());
    EXPECT_EQ(hit->getHull()->getIntegrity(), 50);
    EXPECT_EQ(spent->getEnergy(), 0);

    for (const char* id : {"8", "9"}) ship(id, Point4(0, 500, 0, 1));
    ship("10", Point4(0, 120, 0, 1));
    EXPECT_TRUE(galaxy.detectCollisions());
    EXPECT_EQ(*galaxy.getObjectById(0x500a), nullptr) << "vanishes on the planet";
    galaxy.update(4100);
    for (int id : {0x5008, 0x5009}) EXPECT_EQ(*galaxy.getObjectById(id), nullptr) << "burst";
    galaxy.put(2, 900, 900, static_cast<GAMEOBJenum>(0x800));
    EXPECT_EQ(failureOf([&] { galaxy.detectCollisions(); }),
              "Galaxy::detectCollisions: invalid GameObject type");
}

// The player takes off away from the planet, far enough not to land again at once.
TEST_F(CollisionTest, PlayerLandsAndTakesOffClearOfThePlanet) {
    struct Landing {
        const char* planet;
        Point4 from;
        float height, velocity;
    };
    loadLandingFonts(yard);
    const float clear = 120 + std::sqrt(3.0F) + 1;  // planet, ship, and a bit
    for (const auto& [id, from, height, velocity] :
         {Landing{"1", Point4(0, 120, 0, 1), 170, 10}, Landing{"1", Point4(0, -5, 0, 1), clear, 10},
          Landing{"1", Point4(), clear, 10}, Landing{"40000", Point4(0, 119, 0, 1), 219, 30}}) {
        const Planet* rock = planet(id);
        run({});
        player->setPosition(from);
        player->setVelocity(30);
        player->setOrientation(Vector4(0, 0, 1, 1));
        galaxy.update(0);
        events::push(SDL_KEYDOWN);
        EXPECT_TRUE(galaxy.detectCollisions());

        const Vector4 way(rock->getPosition(), player->getPosition());
        EXPECT_FLOAT_EQ(way.getLength(), height);
        EXPECT_NEAR(Vector4(way).normalize() * player->getOrientation(), 1, 1e-5);
        EXPECT_EQ(player->getHeading() == player->getOrientation(), velocity == 10);
        EXPECT_EQ(player->getVelocity(), velocity);
        galaxy.update(0);
        EXPECT_FALSE(galaxy.detectCollisions()) << "clear of the planet";
        galaxy.put(rock->getId(), 1e6F);
    }

    for (const char* id : {"1", "2"}) planet(id);
    player->setPosition(Point4(0, -5, 0, 1));
    galaxy.update(0);
    events::push(SDL_KEYDOWN, 2);
    EXPECT_TRUE(galaxy.detectCollisions());
    EXPECT_FLOAT_EQ(player->getPosition().y, -clear - 50) << "twice from one place";
}

}  // namespace
