#include "game/galaxy.h"

#include "3d/opengl.h"
#include "game/control.h"
#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/laser.h"
#include "game/world.h"
#include "tests/support/failure.h"
#include "tests/support/probe.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

/// A galaxy whose time passes at a test's command.
struct SteppedGalaxy : Galaxy {
    explicit SteppedGalaxy(const XMLElement& element) : Galaxy(element, nullptr) {}
    using Galaxy::show;
    using Galaxy::update;
    Probe* put(int id, float x = 0, float z = 0) {
        add(std::make_unique<Probe>(id, x, z));
        return static_cast<Probe*>(*getObjectById(id));
    }
};

struct GalaxyTest : testing::Test {
    GalaxyTest() { OpenGLContext::getInstance()->setShowFPS(false); }  // there are no fonts
    ~GalaxyTest() override { OpenGLContext::getInstance()->setShowFPS(true); }

    /// Flies with keys and modifiers pressed ahead, one for each frame, and closes the window.
    LVLenum run(std::vector<std::pair<SDLKey, int>> keys) {
        SDL_Event event{};
        while (SDL_PollEvent(&event)) continue;
        event.type = SDL_KEYDOWN;
        for (auto [key, modifier] : keys) {
            event.key.keysym.sym = key;
            event.key.keysym.mod = static_cast<SDLMod>(modifier);
            SDL_PushEvent(&event);
        }
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
        return galaxy.run(player.get());
    }

    ShipYard yard;
    XMLElement empty = yard.element(yard.galaxyElement());
    SteppedGalaxy galaxy{empty};
    std::unique_ptr<Starship> player = yard.ship("<UserControl/>");
};

TEST_F(GalaxyTest, ShotsJoinTheSweepAndNumberUpTo4096) {
    galaxy.put(5)->deed = [] {
        const Vector4 ahead(0, 0, 1, 1), up(0, 1, 0, 1);
        throw LaserFiredEvent({new Laser(nullptr, 100, Point4(), ahead, up, 100)});
    };
    galaxy.update(500);
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
}

TEST_F(GalaxyTest, LoadsPlanetsAndShips) {
    const std::string planet = "<Planet id='1' name='' pos='P(0|0|0)' velocity='0'" + yard.body();
    const std::string children = "<X/>" + planet + "/>" + planet + "/>" + ShipYard::shipElement();
    SteppedGalaxy loaded(yard.element(yard.galaxyElement(children)));
    EXPECT_EQ((*loaded.getObjectById(0x2001))->getGalaxy(), &loaded);
    EXPECT_EQ((*loaded.getObjectById(0x5003))->getName(), "Ship");
    const XMLElement faulty = yard.element("<Galaxy>" + children + "</Galaxy>");
    EXPECT_EQ(failureOf([&] { SteppedGalaxy{faulty}; }), "no such attribute: space_bg_texture");
}

TEST_F(GalaxyTest, LevelsHaveGalaxiesOfTheirOwnAndPlaceTheShip) {
    World::init(yard.element("<WorldSection><Universe id='2'/><Heaven id='7'/><Universe id='2'>"
                             "<Galaxy id='4' space_bg_texture='' space_bg_size='1'/></Universe>"
                             "</WorldSection>"),
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
    player->explode(false);
    EXPECT_THROW(galaxy.update(1000000), GameOverEvent);
    EXPECT_EQ(behind->updated, 0) << "nobody behind the ship is updated";
    EXPECT_EQ(*galaxy.getObjectById(player->getId()), player.get());
}

}  // namespace
