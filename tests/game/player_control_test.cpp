#include "game/player_control.h"

#include "game/game_event.h"
#include "game/laser.h"
#include "game/tank.h"
#include "game/torpedo.h"
#include "game/torpedo_launcher.h"
#include "tests/support/joystick.h"
#include "tests/support/pilots.h"

namespace {

/// Lets a frame pass; true when a shot leaves the ship.
bool fly(const Starship& ship, int time = 0) {
    if (const Joystick* joystick = SDLContext::getInstance()->getJoystick()) joystick->update();
    try {
        ship.getControl()->update(time);
    } catch (const LaserFiredEvent& event) {
        for (const Laser* laser : event.getLasers()) delete laser;
        EXPECT_EQ(event.getLasers().size(), 1u);
        return true;
    } catch (const TorpedoFiredEvent& event) {
        delete event.getTorpedo();
        return true;
    }
    return false;
}

/// Sends a key through SDL's queue.
void press(const Starship& ship, SDLKey key, int times = 1) {
    SDL_Event event = ShipYard::key(key);
    for (int i = 0; i < times; ++i) SDL_PushEvent(&event);
    while (SDLContext::getInstance()->pollEvent(event)) ship.getControl()->handleEvents(event);
}

/// The player in a ship with a cannon that fires, and one on the hull, to be seen and hit.
class PlayersShip : public testing::Test {
protected:
    ShipYard yard;
    std::unique_ptr<Starship> ship = yard.ship(
        "<UserControl/><CannonConfig type='cannon'/><WingConfig type='wing'><CannonConfig "
        "type='cannon'/></WingConfig>");
};

TEST_F(PlayersShip, TurnsAfterAKeyByADegreeIn300MillisecondsUntilItsOpponentIsPressed) {
    const float s = std::sin(std::numbers::pi_v<float> / 180), c = std::sqrt(1 - s * s);
    for (auto [key, opponent, orientation, up] :
         {std::tuple{SDLK_d, SDLK_a, direction(-s, 0, c), direction(0, 1, 0)},  // right is -x
          {SDLK_w, SDLK_s, direction(0, -s, c), direction(0, c, s)},
          {SDLK_e, SDLK_q, direction(0, 0, 1), direction(s, c, 0)}}) {
        ship = yard.ship("<UserControl/>");
        press(*ship, key);
        for (int i = 0; i < 3; ++i) fly(*ship, 100);
        press(*ship, opponent);
        fly(*ship, 1000);
        EXPECT_THAT(ship->getHeading(), IsNear(orientation));
        EXPECT_THAT(ship->getUp(), IsNear(up));
    }
}

TEST_F(PlayersShip, ObeysThrottleAndTriggerUntilTheTankIsEmpty) {
    press(*ship, SDLK_DOWN, 2);
    press(*ship, SDLK_UP, 11);
    press(*ship, SDLK_RETURN);
    EXPECT_TRUE(fly(*ship, 1000));
    EXPECT_FALSE(fly(*ship));
    EXPECT_EQ(ship->getControl()->getThrottle(), 100);
    press(*ship, SDLK_BACKSPACE);
    EXPECT_FALSE(fly(*ship)) << "no launcher, no torpedo";
    ship->setTorpedoLauncher(PartStore::getInstance()->getTorpedoLauncher("launcher"));
    for (bool launched : {true, true, false}) {
        press(*ship, SDLK_BACKSPACE);
        EXPECT_EQ(fly(*ship), launched) << "there is charge for two torpedoes";
    }

    ship->getTank()->drawFuel(1000);
    for (int i = 0; i < 2; ++i) {
        press(*ship, SDLK_RETURN);
        EXPECT_FALSE(fly(*ship, 1000));
        press(*ship, SDLK_d, 50);
    }
    EXPECT_THAT(ship->getOrientation(), IsNear(direction(0, 0, 1)));
    EXPECT_EQ(ship->getControl()->getThrottle(), 0);
    ship->update(1000);
    EXPECT_EQ(ship->getPosition(), place(0, 0, 50)) << "it drifts on";
}

// Keeps its target when nothing is ahead, but not when the target is too far away to be shot at.
TEST_F(PlayersShip, SelectsWhatIsAhead) {
    const std::string rock = "<Planet id='7' name='Rock' pos='P(0|0|490)' velocity='0'";
    Pilots::Space space(yard.element(yard.galaxyElement(rock + yard.body() + "/>")), nullptr);
    Starship& flown = *ship;
    space.add(std::move(ship));
    const std::tuple<float, float, int, bool> frames[] = {{0, -100, 1, false}, {0, 0, 0, false},
                                                          {0, 0, 1, true},     {50, 0, 1, true},
                                                          {0, -510, 0, true},  {0, -511, 0, false}};
    for (auto [x, z, presses, found] : frames) {
        flown.setPosition(place(x, 0, z));
        press(flown, SDLK_SPACE, presses);
        flown.update(0);
        EXPECT_EQ(flown.getSelectedObject() && *flown.getSelectedObject(), found) << x << z;
    }
}

// A joystick is looked for only when the window opens, so it opens anew, in a process of its own.
void flyByStick(const Starship* ship) {
    PluggedJoystick stick;
    delete SDLContext::getInstance();
    SDLContext::init(SDL_INIT_VIDEO | SDL_INIT_JOYSTICK, 800, 600);
    press(*ship, SDLK_d, 20);
    stick.axes = {0, -32767, 0, 0, 32767, 0};
    fly(*ship, 15);
    EXPECT_EQ(ship->getControl()->getThrottle(), 50);
    EXPECT_NEAR(ship->getOrientation().y, -0.00873, 1e-4) << "half a degree down";
    EXPECT_NEAR(ship->getUp().x, -0.01745, 1e-4) << "rolls twice as fast";
    stick.axes.resize(2);
    press(*ship, SDLK_DOWN);
    press(*ship, SDLK_RETURN);
    EXPECT_FALSE(fly(*ship)) << "the button that is up takes the key back";
    EXPECT_EQ(ship->getControl()->getThrottle(), 40) << "no lever: the keys keep the throttle";
    // The buttons held in each frame: to fire and to change the weapon; ! is a shot.
    for (const std::string held :
         {"fire!", "fire", "", "fire!", "weapon", "weapon fire", "", "weapon", "fire!"}) {
        stick.buttons = {held.find('f') < held.size(), false, held.find('w') < held.size()};
        EXPECT_EQ(fly(*ship), held.ends_with('!')) << held;
    }
}

TEST_F(PlayersShip, ObeysWhatTheJoystickHas) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT((flyByStick(ship.get()), std::_Exit(HasFailure())), testing::ExitedWithCode(0), "");
}

}  // namespace
