// The game as a person meets it: the real program or the real driver, a window, and keys that come
// through the display server.

#include "game/camera_management.h"
#include "game/galaxy.h"
#include "game/game_camera_interface.h"
#include "game/player_control.h"
#include "game/starship.h"
#include "tests/support/capture.h"
#include "tests/support/events.h"
#include "tests/support/eventually.h"
#include "tests/support/game_run.h"
#include "tests/support/landing.h"
#include "tests/support/screen.h"
#include "tests/support/shipped_game.h"
#include "tests/support/tiny_game.h"
#include "tests/support/typist.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <functional>

using namespace std::string_literals;

namespace {

/// Tells after each frame whether something is to be seen by now.
struct WatchedGalaxy : Galaxy {
    WatchedGalaxy(const XMLElement& node, std::function<bool()> seen)
        : Galaxy(node, nullptr), seen(std::move(seen)) {}
    bool detectCollisions() override {
        const bool stop_time = Galaxy::detectCollisions();
        is_seen = seen();
        return stop_time;
    }
    const std::function<bool()> seen;
    std::atomic<bool> is_seen = false;
};

/// A ship with a cannon and a launcher, ahead of it a planet too large to be missed in a slow
/// frame, flown by typed keys until Esc.
class TypedFlight {
public:
    TypedFlight() {
        loadLandingFonts(yard);
        window().enableEvents(SDL_KEYDOWN);
    }
    ~TypedFlight() { window().disableEvents(SDL_KEYDOWN); }

    /// Whether all is as it should be at the end of a flight with these keys.
    bool fly(const std::string& keys, const std::function<bool()>& seen, int distance = 300) {
        const std::string planet = "<Planet id='1' name='Rock' velocity='0' pos='P(0|0|" +
                                   std::to_string(distance) + ")' rep3d='" +
                                   dir.write("planet.ASE", boxModel(10)) + "'/>";
        WatchedGalaxy galaxy(yard.element(yard.galaxyElement(planet)), seen);
        const std::string wing = "<WingConfig type='wing'>", end = "</WingConfig>";
        const auto ship = yard.ship("<UserControl/>" + wing + "<CannonConfig type='cannon'/>" +
                                    end + wing + "<TorpedoLauncherConfig type='launcher'/>" + end);
        const Capture silence(std::cout);
        events::flush();
        const Typist typist(keys, [&] { return galaxy.is_seen.load(); });
        return galaxy.run(ship.get()) == MENU_ACTIVATION && seen();
    }

private:
    const TempDir dir;
    ShipYard yard;
};

Starship& player() {
    return *dynamic_cast<Starship*>(CameraManagement::getInstance()->getPlayerObject());
}

bool watches(CAMPOSenum which) {
    return CameraManagement::getInstance()->getCurrentCamera() == player().getCamera(which);
}

bool watchesType(CAMTYPEenum type) {
    return CameraManagement::getInstance()->getCurrentCameraType() == type;
}

}  // namespace

// Each key reaches the ship or the camera that it is meant for, and turns it the right way.
TEST(Flight, KeysFlyTheShipAndChooseTheCamera) {
    const auto nose = [] { return player().getOrientation(); };
    const auto camera_pitch = [](int sign) {
        return [sign] {
            const auto view = CameraManagement::getInstance()->getCurrentCamera()->getMatrix();
            // How far the view's depth axis, which points back at the eye, leans to the world's y.
            return sign * view.getFloatp()[6] > 0.01F;
        };
    };
    const std::pair<const char*, std::function<bool()>> cases[] = {
        {"a", [&] { return nose().x > 0.01F && std::abs(nose().y) < 1e-3F; }},
        {"d", [&] { return nose().x < -0.01F && std::abs(nose().y) < 1e-3F; }},
        {"w", [&] { return nose().y < -0.01F && std::abs(nose().x) < 1e-3F; }},
        {"s", [&] { return nose().y > 0.01F && std::abs(nose().x) < 1e-3F; }},
        {"q", [&] { return player().getUp().x < -0.01F && nose().z > 0.999F; }},
        {"e", [&] { return player().getUp().x > 0.01F && nose().z > 0.999F; }},
        {"Up Up Up", [] { return player().getControl()->getThrottle() == 30; }},
        {"Up Up Down", [] { return player().getVelocity() > 1; }},
        {"Return Return", [] { return player().getGalaxy()->getNumLasers() == 2; }},
        {"space", [] { return player().getSelectedObject() != nullptr; }},
        {"F3", [] { return watchesType(CAM_PLANET); }},
        {"F3 F1", [] { return watches(CPOS_FRONT); }},
        {"F3 F2 F8", [] { return watchesType(CAM_STARSHIP) && watches(CPOS_BACK); }},
        {"F6", [] { return watches(CPOS_LEFT); }},
        {"F7", [] { return watches(CPOS_RIGHT); }},
        {"F8 F5", [] { return watches(CPOS_FRONT); }},
        {"F3 Prior", [] { return watchesType(CAM_PLANET) && !watches(CPOS_FRONT); }},
        {"F6 Prior Next", [] { return watches(CPOS_LEFT); }},
        {"F12", [] { return CameraManagement::getInstance()->isAutoWeapon(); }},
        {"BackSpace", [] { return watchesType(CAM_TORPEDO); }},
        {"F12", [] { return !CameraManagement::getInstance()->isAutoWeapon(); }},
        {"alt+Up alt+Up", camera_pitch(-1)},
        {"alt+Down alt+Down", camera_pitch(1)},
    };
    TypedFlight flight;
    for (const auto& [keys, seen] : cases) EXPECT_TRUE(flight.fly(keys, seen)) << keys;
}

// The ship flies into the planet's air, lands, waits for a key and takes off, away from the planet.
TEST(Flight, LandsAndTakesOff) {
    EXPECT_TRUE(TypedFlight().fly(
        "Up Up Up",
        [] {
            return player().getOrientation().z < -0.99F && player().getPosition().z < 10 &&
                   player().getControl()->getThrottle() == 0;
        },
        60));
}

namespace {

using screen::Colour, screen::Picture;

/// The pixels of a screenshot file that shows this: from the bottom row up, blue first.
std::string encode(const Picture& picture) {
    std::string pixels;
    for (size_t row = screen::height; row-- > 0;)
        for (size_t column = 0; column < screen::width; ++column) {
            const Colour& colour = picture[row * screen::width + column];
            pixels.append(colour.rbegin(), colour.rend());
        }
    return pixels;
}

double differenceFrom(const Picture& picture) {
    return screen::difference(picture, screen::capture());
}

/// What the buttons of the tiny game look like: at rest, with the focus, pressed.
constexpr Colour blue = {1, 1, 160}, green = {1, 160, 1}, red = {160, 1, 1};

/// Buttons of the main menu, right of their labels.
constexpr struct Spot {
    size_t x, y;
    std::string move() const {
        return "mousemove " + std::to_string(x) + ' ' + std::to_string(y) + ' ';
    }
} first_button = {575, 462}, quit_button = {375, 462}, video_button = {415, 228};

Colour colourAt(const Spot& spot) {
    return screen::capture()[spot.y * screen::width + spot.x];
}

bool waitForColour(const Spot& spot, const Colour& colour) {
    return eventually([&] { return colourAt(spot) == colour; });
}

/// The first frame of a flight is there as soon as the menu is not.
bool waitForFlight(GameRun& run, const std::string& log) {
    return run.waitForOutput(log + "GAME: running level...\n") &&
           eventually([] { return colourAt(quit_button) != blue; });
}

/// The label of the first button.
Picture firstLabel() {
    const Picture picture = screen::capture();
    Picture label;
    for (int row = 448; row < 476; ++row) {
        const auto start = picture.begin() + row * 800 + 425;
        label.insert(label.end(), start, start + 145);
    }
    return label;
}

}  // namespace

TEST(Flight, ShippedGameLogsItsStartAndAnswersTheGlobalKeys) {
    const ShippedGame shipped;
    GameRun run(shipped.getDirectory());
    ASSERT_TRUE(run.waitForOutput("Level::Level: starship set")) << run.out() << run.err();
    ASSERT_TRUE(eventually([] { return colourAt(quit_button) != Colour(); })) << "a black window";
    const Picture menu = screen::capture();
    screen::act("key Return");
    ASSERT_TRUE(run.waitForOutput("GAME: running level...\n")) << run.out() << run.err();
    ASSERT_TRUE(eventually([&] { return differenceFrom(menu) > 0.2; }));
    const Picture textured = screen::capture();

    size_t at = 0;
    for (const char* line :
         {"MAIN: initializing SDL...\n", "SDL: OpenGLContext:\n* OpenGL vendor: ",
          "SDL: AudioFactory:\n* sampling rate: 22050\n* channels: 16\n",
          "GAME: parsing game file <../data/game.xml>...\n", "GAME: loading fonts...\n",
          "GAME: Loading Part 1: ", "GAME: loading visual fx...\n",
          "GAME: loading and initializing level...\n", "GAME: creating galaxy 0\n",
          "!! MAIN(4): button 2 pressed\n"}) {
        at = run.out().find(line, at);
        ASSERT_NE(at, std::string::npos) << line << run.out();
    }

    const auto isTextured = [&] { return differenceFrom(textured) < 0.2; };
    const auto isBare = [&] { return !isTextured(); };
    for (const auto& [bare, full] :
         {std::pair("alt+w", "alt+t"), {"alt+f", "alt+n"}, {"alt+p", "alt+n"}}) {
        screen::act("key "s + bare);
        EXPECT_TRUE(eventually(isBare)) << bare;
        screen::act("key "s + full);
        EXPECT_TRUE(eventually(isTextured)) << full;
    }

    screen::act("key Escape");
    EXPECT_TRUE(eventually(isBare)) << "the menu";
    screen::act(quit_button.move() + "click 1");
    EXPECT_EQ(run.wait(), 0);
    EXPECT_EQ(run.err(), "");
}

// The menu before the flight, in the middle of it, and after the loss of the ship. In flight, a
// screenshot is what is on the screen.
TEST(Flight, MenuStartsPausesAndBeginsAnew) {
    TinyGame game;
    game.write("data/planet.ASE", boxModel(20))
        .replace("<Planet id='1' name='Rock' rep3d='../data/box.ASE' pos='P(0|0|400)'",
                 "<Starship id='2' name='Wreck' pos='P(0|0|40)' orientation='V(0|0|1)' "
                 "up='V(0|1|0)' hull='hull' engine='engine' reactor='reactor' tank='tank'/>"
                 "<Planet id='1' name='Rock' rep3d='../data/planet.ASE' pos='P(30|40|150)'");
    GameRun run(game.getDirectory());
    ASSERT_TRUE(waitForColour(first_button, green)) << run.out() << run.err();
    const Picture start_game = firstLabel();
    screen::act(video_button.move() + "click 1");
    EXPECT_TRUE(run.waitForOutput("!! MAIN(4): button 4 pressed\n"));
    EXPECT_TRUE(waitForColour(video_button, green));
    EXPECT_EQ(colourAt(first_button), blue);
    screen::act(first_button.move() + "mousedown 1");
    EXPECT_TRUE(waitForColour(first_button, red));
    EXPECT_EQ(run.out().find("GAME: running level..."), std::string::npos);
    screen::act("mouseup 1");
    ASSERT_TRUE(waitForFlight(run, "!! MAIN(4): button 2 pressed\n"));

    screen::act("key alt+c");  // the changing figure of the frame rate would be a difference
    EXPECT_TRUE(eventually([&] {
        const std::string shot = game.getDirectory() + "/screenshot.tga";
        constexpr size_t header = 18, whole = header + 800UL * 600 * 3;
        std::filesystem::remove(shot);
        screen::act("key Print");
        return eventually([&] { return readFile(shot).size() == whole; }) &&
               readFile(shot).substr(header) == encode(screen::capture());
    }));

    screen::act("key Escape");
    ASSERT_TRUE(waitForColour(first_button, green));
    const Picture continue_game = firstLabel();
    EXPECT_NE(continue_game, start_game);
    screen::act("key Escape");
    ASSERT_TRUE(waitForFlight(run, "type = 2\n"));

    screen::act("key --delay 100 Up Up Up");
    ASSERT_TRUE(
        run.waitForOutput("GAME: reloading player starship...\n!! GAME(5): removing Player\n"))
        << run.out();
    ASSERT_TRUE(waitForColour(first_button, green));
    EXPECT_NE(firstLabel(), start_game);
    EXPECT_NE(firstLabel(), continue_game);
    EXPECT_EQ(run.out().find("removing Rock"), std::string::npos) << "the old level waits";
    const Picture one = screen::capture();
    EXPECT_TRUE(eventually([&] { return differenceFrom(one) > 0.0005; })) << "the new ship turns";

    screen::act("key Return");
    const std::string anew =
        "!! MAIN(4): button 2 pressed\n"
        "GAME: loading and initializing level...\n"
        "!! GAME(5): removing Rock\n"
        "!! GAME(5): removing Wreck\n"
        "!! GAME(5): level deleted.\n"
        "!! GAME(5): Level::LEvel: called\n";
    EXPECT_TRUE(run.waitForOutput(anew)) << run.out();
    ASSERT_TRUE(eventually([] { return colourAt(quit_button) != blue; }));
    screen::act("key Escape");
    ASSERT_TRUE(waitForColour(first_button, green));
    EXPECT_EQ(firstLabel(), continue_game) << "of the new life";
    screen::closeWindow();
    EXPECT_EQ(run.wait(), 0);
    EXPECT_EQ(run.err(), "");
}
