#include "game/galaxy.h"

#include "3d/color_rgba.h"
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
#include "tests/support/landing.h"
#include "tests/support/pilots.h"
#include "tests/support/tiny_game.h"

namespace {

/// A galaxy whose time passes at a test's command.
struct SteppedGalaxy : Pilots::Space {
    explicit SteppedGalaxy(const XMLElement& element) : Space(element, nullptr) {}
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
};

struct GalaxyTest : Pilots {
    /// Flies with keys and modifiers pressed ahead, one for each frame, and closes the window.
    LVLenum run(std::vector<std::pair<SDLKey, int>> keys) {
        events::flush();
        for (auto [key, modifier] : keys) {
            SDL_Event event = ShipYard::key(key);
            event.key.keysym.mod = static_cast<SDLMod>(modifier);
            SDL_PushEvent(&event);
        }
        events::push(SDL_QUIT);
        return galaxy.run(player.get());
    }

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
}

TEST_F(GalaxyTest, LevelsHaveGalaxiesOfTheirOwnAndPlaceTheShip) {
    const std::string sky =
        "<Galaxy id='4'" + yard.galaxyElement("<X/>" + ShipYard::shipElement()).substr(7);
    World::init(yard.element("<WorldSection><Universe id='2'/><Universe id='2'>" + sky +
                             "</Universe></WorldSection>"),
                nullptr);
    const auto galaxies = World::getInstance()->getGalaxies(2);
    EXPECT_NE(galaxies.at(4), World::getInstance()->getGalaxies(2).at(4));
    const auto* ship = static_cast<Starship*>(*galaxies.at(4)->getObjectById(0x5003));
    EXPECT_EQ(ship->getShield()->getMaxEnergy(), 20u) << "the simple one";
    const std::string fourth = "universe_id='2' start_galaxy='4'", story = "<StoryTeller/>";
    const std::tuple<std::string, std::string, std::string> levels[] = {
        {fourth, "<Soundtrack file='a'/>" + story, "nothing thrown"},
        {fourth, story + story,
         "storyTeller::createInstance: instance already set - delete instance first!"},
        {fourth, story + "<Epilogue/>",
         "Level::Level: invalid game file (wrong node type: Epilogue)"},
        {fourth, "", "storyTeller::destroyInstance: instance not set - create instance first!"},
        {"universe_id='2' start_galaxy='5'", story,
         "Level::Level: start galaxy doesn't exist (id 5)"}};
    for (const auto& [place, children, failure] : levels) {
        const XMLElement level = yard.element(
            "<Level user_starship_position='P(1|2|3)' user_starship_up='V(1|0|0)' "
            "user_starship_orientation='V(0|0|-1)' " +
            place + ">" + children + "</Level>");
        EXPECT_EQ(failureOf([&] { Level(level, player.get()); }), failure);
    }
    EXPECT_EQ(player->getPosition(), Point4(1, 2, 3, 1));
    EXPECT_EQ(player->getHeading(), Vector4(0, 0, -1, 1));
    EXPECT_EQ(player->getUp(), Vector4(1, 0, 0, 1));
    World::getInstance()->destroy();
}

TEST_F(GalaxyTest, RunEndsByEscapeOrWindowCloseAndKeepsTheShip) {
    const Probe* actor = galaxy.put(1);
    EXPECT_EQ(run({{SDLK_ESCAPE, KMOD_LSHIFT}, {SDLK_ESCAPE, KMOD_LCTRL}, {SDLK_F3, 0}}),
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
    Starship* drone(const std::string& id, const Point4& position) {
        std::string text = ShipYard::shipElement();
        text.replace(text.find("id='3'"), 6, "id='" + id + "'");
        Starship* made = galaxy.put(std::make_unique<Starship>(yard.element(text)));
        made->setPosition(position);
        return made;
    }
    /// A planet at the origin that is touched up to 120 units away.
    Planet* planet(const std::string& id) {
        return galaxy.put(std::make_unique<Planet>(
            yard.element("<Planet id='" + id + "' name='Rock' pos='P(0|0|0)' velocity='0' rep3d='" +
                         dir.write("rock.ASE", boxModel(100)) + "'/>")));
    }
    /// Takes a shot in as if a ship had fired it.
    template <class Fired, class Shot>
    Shot* shoot(Shot* shot, float x) {
        shot->setPosition(place(x, 0, 0));
        shot->setVelocity(0);
        galaxy.put(1)->deed = [shot] { throw Fired({shot}); };
        galaxy.update(0);
        galaxy.put(1);
        return shot;
    }
    Laser* laser(float x) {
        return shoot<LaserFiredEvent>(
            new Laser(nullptr, 50, Point4(), direction(0, 0, 1), direction(0, 1, 0), 0), x);
    }
    Torpedo* torpedo(float x) {
        return shoot<TorpedoFiredEvent>(PartStore::getInstance()->getTorpedo("torpedo"), x);
    }
};

TEST_F(CollisionTest, ShotsAndShipsEndByWhatTheyTouch) {
    planet("1");
    laser(119);
    const Torpedo* crashed = torpedo(-119);
    EXPECT_FALSE(galaxy.detectCollisions());
    EXPECT_EQ(*galaxy.getObjectById(0x7001), nullptr);
    EXPECT_EQ(crashed->getTTL(), 0) << "bursts with its next update";

    const Torpedo* others[] = {torpedo(200), torpedo(202), torpedo(300)};
    laser(301);
    laser(330);
    EXPECT_FALSE(galaxy.detectCollisions());
    for (const Torpedo* gone : others) EXPECT_EQ(gone->getTTL(), 0);
    EXPECT_EQ(*galaxy.getObjectById(0x7002), nullptr);
    EXPECT_NE(*galaxy.getObjectById(0x7003), nullptr) << "touches nothing";

    const Starship* hit = drone("7", Point4(400, 0, 0, 1));
    Laser* spent = laser(400);
    EXPECT_FALSE(galaxy.detectCollisions());
    EXPECT_EQ(hit->getHull()->getIntegrity(), 50);
    EXPECT_EQ(spent->getEnergy(), 0);

    for (const char* id : {"8", "9"}) drone(id, Point4(0, 500, 0, 1));
    drone("10", Point4(0, 120, 0, 1));
    EXPECT_TRUE(galaxy.detectCollisions());
    EXPECT_EQ(*galaxy.getObjectById(0x500a), nullptr) << "vanishes on the planet";
    galaxy.update(4100);
    for (int id : {0x5008, 0x5009}) EXPECT_EQ(*galaxy.getObjectById(id), nullptr) << "burst";
}

// The landing screen waits for a key, whatever else happens meanwhile. The player takes off away
// from the planet, far enough not to land again at once.
TEST_F(CollisionTest, PlayerLandsAndTakesOffClearOfThePlanet) {
    loadLandingFonts(yard);
    const float clear = 120 + std::sqrt(3.0F) + 1;  // planet, ship, and a bit
    for (const auto& [id, from, height, velocity] :
         {std::tuple("1", Point4(0, 120, 0, 1), 170.F, 10.F),
          {"1", Point4(), clear, 10},
          {"40000", Point4(0, 119, 0, 1), 219, 30}}) {
        const Planet* rock = planet(id);
        run({});
        player->setPosition(from);
        player->setVelocity(30);
        player->setOrientation(Vector4(0, 0, 1, 1));
        galaxy.update(0);
        for (const Uint8 type : {SDL_KEYUP, SDL_KEYDOWN}) events::push(type);
        EXPECT_TRUE(galaxy.detectCollisions());
        EXPECT_EQ(events::flush(), 0) << "the key that went up did not count";
        for (const int y : {305, 264}) {
            int lit = 0;
            for (int x = 300; x < 450; ++x) lit += readPixel(x, y) != std::array{0, 0, 0};
            EXPECT_GT(lit, 9) << "no text at " << y;
        }

        const Vector4 way(rock->getPosition(), player->getPosition());
        EXPECT_FLOAT_EQ(way.getLength(), height);
        EXPECT_NEAR(Vector4(way).normalize() * player->getOrientation(), 1, 1e-5);
        EXPECT_EQ(player->getHeading() == player->getOrientation(), velocity == 10);
        EXPECT_EQ(player->getVelocity(), velocity);
        galaxy.update(0);
        EXPECT_FALSE(galaxy.detectCollisions()) << "clear of the planet";
        galaxy.put(rock->getId(), 1e6F);
    }
}

}  // namespace
