// The game as a person meets it: the real program or the real driver, a window, and keys that come
// through the display server.

#include "3d/font_factory.h"
#include "game/camera_management.h"
#include "game/engine.h"
#include "game/galaxy.h"
#include "game/game_camera_interface.h"
#include "game/part_store.h"
#include "game/player_control.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "game/tank.h"
#include "tests/support/capture.h"
#include "tests/support/files.h"
#include "tests/support/game_run.h"
#include "tests/support/screen.h"
#include "tests/support/shipped_game.h"
#include "tests/support/tiny_game.h"
#include "tests/support/typist.h"
#include "tests/support/window.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <functional>
#include <thread>

namespace {

void sleepMs(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

/// A ship in the galaxy of the tiny game, flown by typed keys until Esc.
class TypedFlight {
public:
    explicit TypedFlight(const std::string& planet = "P(0|0|400)")
        : before(std::filesystem::current_path()) {
        tiny.replace("P(0|0|400)", planet);
        std::filesystem::current_path(tiny.getDirectory());
        const Capture silence(std::cout);
        parser = std::make_unique<XMLParser>("../data/game.xml");
        FontFactory::getInstance()->load(find(parser->getRootElement(), "Fonts"));
        PartStore::getInstance()->load(find(parser->getRootElement(), "PartSection"));
        window().enableEvents(SDL_KEYDOWN);
    }
    ~TypedFlight() {
        window().disableEvents(SDL_KEYDOWN);
        PartStore::getInstance()->clear();
        std::filesystem::current_path(before);
    }
    TypedFlight(const TypedFlight&) = delete;
    TypedFlight& operator=(const TypedFlight&) = delete;

    /// Whether all is as it should be at the end of a flight with these keys.
    bool fly(const std::string& keys, const std::function<bool()>& seen) {
        const Capture silence(std::cout);
        const XMLElement root = parser->getRootElement();
        const XMLElement universe = find(find(root, "WorldSection"), "Universe");
        Galaxy galaxy(find(universe, "Galaxy"), nullptr);
        Starship ship(find(root, "Starship"));
        const Typist typist(keys);
        return galaxy.run(&ship) == MENU_ACTIVATION && seen();
    }

private:
    static XMLElement find(const XMLElement& parent, const std::string& name) {
        XMLElement child = parent.getFirstChild();
        while (child.getName() != name) child = child.getNext();
        return child;
    }

    TinyGame tiny;
    std::filesystem::path before;
    std::unique_ptr<XMLParser> parser;
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

struct KeyCase {
    const char* keys;
    std::function<bool()> seen;
};

}  // namespace

// Each key reaches the ship or the camera that it is meant for, and turns it the right way.
TEST(Flight, KeysFlyTheShipAndChooseTheCamera) {
    window();
    const auto nose = [] { return player().getOrientation(); };
    const auto camera_pitch = [](int sign) {
        return [sign] {
            const auto view = CameraManagement::getInstance()->getCurrentCamera()->getMatrix();
            // How far the view's depth axis, which points back at the eye, leans to the world's y.
            return sign * view.getFloatp()[6] > 0.01F;
        };
    };
    const KeyCase cases[] = {
        {"a", [&] { return nose().x > 0.01F && std::abs(nose().y) < 1e-3F; }},
        {"d", [&] { return nose().x < -0.01F && std::abs(nose().y) < 1e-3F; }},
        {"w", [&] { return nose().y < -0.01F && std::abs(nose().x) < 1e-3F; }},
        {"s", [&] { return nose().y > 0.01F && std::abs(nose().x) < 1e-3F; }},
        {"q", [&] { return std::abs(player().getUp().x) > 0.01F && nose().z > 0.999F; }},
        {"e", [&] { return std::abs(player().getUp().x) > 0.01F && nose().z > 0.999F; }},
        {"Up Up Up", [] { return player().getControl()->getThrottle() == 30; }},
        {"Up Up Down",
         [] { return player().getVelocity() > 1 && player().getTank()->getFuel() < 100000; }},
        {"Return Return", [] { return player().getGalaxy()->getNumLasers() == 4; }},
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
    window();
    TypedFlight flight("P(0|0|60)");
    std::string keys;
    for (int i = 0; i < 10; ++i) keys += "Up ";
    for (int i = 0; i < 25; ++i) keys += "F5 ";
    EXPECT_TRUE(flight.fly(keys, [] {
        return player().getOrientation().z < -0.99F && player().getPosition().z < 10 &&
               player().getControl()->getThrottle() == 0;
    }));
}

namespace {

constexpr size_t screenshot_size = 18 + 800 * 600 * 3;

/// Waits until the file is there in full.
std::string readScreenshot(const std::string& directory) {
    const std::string file = directory + "/screenshot.tga";
    for (int tries = 0; tries < 200 && readFile(file).size() < screenshot_size; ++tries)
        sleepMs(50);
    return readFile(file);
}

/// The picture in a screenshot file, in the order of the screen: top row first, red first.
screen::Picture decode(const std::string& tga) {
    screen::Picture picture;
    for (int row = 599; row >= 0; --row)
        for (int column = 0; column < 800; ++column)
            for (const int colour : {2, 1, 0})
                picture.push_back(
                    static_cast<unsigned char>(tga[18 + (row * 800 + column) * 3 + colour]));
    return picture;
}

size_t litPixels(const screen::Picture& picture) {
    size_t lit = 0;
    for (size_t i = 0; i < picture.size(); i += 3)
        lit += picture[i] + picture[i + 1] + picture[i + 2] > 90;
    return lit;
}

/// Waits for what is to be seen some time soon.
template <typename Condition>
bool eventually(Condition condition) {
    for (int tries = 0; tries < 200; ++tries) {
        if (condition()) return true;
        sleepMs(50);
    }
    return false;
}

/// Waits for a picture with something in it, so that keys are listened to.
bool waitForPicture() {
    return eventually([] { return litPixels(screen::capture()) > 200; });
}

double differenceFrom(const screen::Picture& picture) {
    return screen::difference(picture, screen::capture());
}

bool waitForMenu(GameRun& run) {
    return run.waitForOutput("!! GAME(5): Level::Level: starship set") && waitForPicture();
}

/// Starts the game from its menu.
bool waitForFlight(GameRun& run) {
    if (!waitForMenu(run)) return false;
    screen::press("Return");
    return run.waitForOutput("GAME: running level...") && waitForPicture();
}

using Colour = std::array<int, 3>;

/// What the buttons of the tiny game look like: at rest, with the focus, pressed.
constexpr Colour blue = {1, 1, 160}, green = {1, 160, 1}, red = {160, 1, 1};

/// The buttons of the main menu, right of their labels.
struct Spot {
    int x, y;
};
constexpr Spot first_button = {575, 462}, quit_button = {375, 462}, video_button = {415, 228};

Colour colourAt(const Spot& spot) {
    const screen::Picture picture = screen::capture();
    if (picture.empty()) return {};
    const size_t at = static_cast<size_t>(spot.y * 800 + spot.x) * 3;
    return {picture[at], picture[at + 1], picture[at + 2]};
}

bool waitForColour(const Spot& spot, const Colour& colour) {
    return eventually([&] { return colourAt(spot) == colour; });
}

/// The label of the first button.
screen::Picture firstLabel() {
    const screen::Picture picture = screen::capture();
    screen::Picture label;
    for (int row = 448; row < 476; ++row) {
        const auto start = picture.begin() + (row * 800 + 425) * 3;
        label.insert(label.end(), start, start + 145 * 3);
    }
    return label;
}

}  // namespace

TEST(Flight, ShippedGameLogsItsStartAndAnswersTheGlobalKeys) {
    const ShippedGame shipped;
    GameRun run(shipped.getDirectory());
    ASSERT_TRUE(waitForFlight(run)) << run.out() << run.err();

    size_t at = 0;
    for (const char* line : {"MAIN: initializing SDL...\n",
                             "SDL: initializing video (using opengl)...\n",
                             "SDL: setting up opengl...\n",
                             "SDL: OpenGLContext:\n* OpenGL vendor: ",
                             "SDL: initializing audio...\n",
                             "SDL: AudioFactory:\n* sampling rate: 22050\n* channels: 16\n",
                             "SDL: found ",
                             "MAIN: initializing game...\n",
                             "GAME: parsing game file <../data/game.xml>...\n",
                             "GAME: loading fonts...\n",
                             "GAME: loading menu configuration...\n",
                             "GAME: loading parts...\n",
                             "GAME: Loading Part 1: ",
                             "GAME: loading levels nodes...\n",
                             " levels found\n",
                             "GAME: loading world...\n",
                             "GAME: loading user starship...\n",
                             "GAME: loading visual fx...\n",
                             "MAIN: starting game...\n",
                             "GAME: loading and initializing level...\n",
                             "!! GAME(5): Level::LEvel: called\n",
                             "GAME: creating galaxy 0\n",
                             "GAME: loading game objects...\n",
                             "!! GAME(5): Level::Level: starship set\n",
                             "!! MAIN(4): MenuFrame::run: event caught - type = 2\n",
                             "!! MAIN(4): button 2 pressed\n",
                             "GAME: running level...\n"}) {
        const size_t found = run.out().find(line, at);
        ASSERT_NE(found, std::string::npos) << line << run.out();
        at = found;
    }
    EXPECT_EQ(run.err(), "");

    screen::press("alt+c");  // the changing figure of the frame rate would be a difference
    sleepMs(200);
    const screen::Picture textured = screen::capture();
    const auto isTextured = [&] { return differenceFrom(textured) < 0.2; };
    const auto isBare = [&] { return !isTextured(); };
    for (const auto& [bare, full] :
         {std::pair("alt+w", "alt+t"), {"alt+f", "alt+n"}, {"alt+p", "alt+n"}}) {
        screen::press(bare);
        EXPECT_TRUE(eventually(isBare)) << bare;
        screen::press(full);
        EXPECT_TRUE(eventually(isTextured)) << full;
    }

    screen::press("Print");
    EXPECT_EQ(readScreenshot(shipped.getDirectory()).size(), screenshot_size);

    screen::press("alt+Return");
    sleepMs(500);
    EXPECT_TRUE(run.isRunning());
    screen::press("alt+Return");
    EXPECT_TRUE(eventually(isTextured)) << "back in the window";

    screen::press("Escape");
    EXPECT_TRUE(eventually(isBare)) << "the menu";
    screen::click(quit_button.x, quit_button.y);
    EXPECT_EQ(run.wait(), 0) << run.err();
    EXPECT_EQ(run.err(), "");
}

TEST(Flight, ScreenshotEqualsTheScreenAndClosingTheWindowEnds) {
    TinyGame still;
    still.write("data/planet.ASE", boxModel(20))
        .replace("rep3d='../data/box.ASE' pos='P(0|0|400)'",
                 "rep3d='../data/planet.ASE' pos='P(30|40|150)'");
    GameRun run(still.getDirectory());
    ASSERT_TRUE(waitForFlight(run)) << run.out() << run.err();
    screen::press("alt+c");
    sleepMs(300);
    screen::press("Print");
    const std::string file = readScreenshot(still.getDirectory());
    ASSERT_EQ(file.size(), screenshot_size);
    EXPECT_EQ(decode(file), screen::capture());

    screen::closeWindow();
    EXPECT_EQ(run.wait(), 0) << run.err();
    EXPECT_EQ(run.err(), "");
}

// The menu before the flight, in the middle of it, and after the loss of the ship.
TEST(Flight, MenuStartsPausesAndBeginsAnew) {
    TinyGame game;
    game.replace("<Planet id='1'",
                 "<Starship id='2' name='Wreck' pos='P(0|0|40)' orientation='V(0|0|1)' "
                 "up='V(0|1|0)' hull='hull' engine='engine' reactor='reactor' tank='tank'/>"
                 "<Planet id='1'");
    GameRun run(game.getDirectory());
    ASSERT_TRUE(waitForColour(first_button, green)) << run.out() << run.err();
    const screen::Picture start_game = firstLabel();
    screen::click(video_button.x, video_button.y);
    EXPECT_TRUE(run.waitForOutput("!! MAIN(4): button 4 pressed\n"));
    EXPECT_TRUE(waitForColour(video_button, green));
    EXPECT_EQ(colourAt(first_button), blue);
    screen::hold(first_button.x, first_button.y);
    EXPECT_TRUE(waitForColour(first_button, red));
    EXPECT_EQ(run.out().find("GAME: running level..."), std::string::npos);
    screen::release();
    ASSERT_TRUE(run.waitForOutput("!! MAIN(4): button 2 pressed\nGAME: running level...\n"));
    ASSERT_TRUE(waitForPicture());

    screen::press("Escape");
    ASSERT_TRUE(waitForColour(first_button, green));
    const screen::Picture continue_game = firstLabel();
    EXPECT_NE(continue_game, start_game);
    screen::press("Escape");
    ASSERT_TRUE(run.waitForOutput("type = 2\nGAME: running level...\n"));

    for (int i = 0; i < 10; ++i) screen::press("Up");
    ASSERT_TRUE(
        run.waitForOutput("GAME: reloading player starship...\n!! GAME(5): removing Player\n"))
        << run.out();
    ASSERT_TRUE(waitForColour(first_button, green));
    EXPECT_NE(firstLabel(), start_game);
    EXPECT_NE(firstLabel(), continue_game);
    EXPECT_EQ(run.out().find("removing Rock"), std::string::npos) << "the old level waits";
    const screen::Picture one = screen::capture();
    EXPECT_TRUE(eventually([&] { return differenceFrom(one) > 0.0005; })) << "the new ship turns";

    screen::press("Return");
    EXPECT_TRUE(
        run.waitForOutput("!! MAIN(4): button 2 pressed\n"
                          "GAME: loading and initializing level...\n"
                          "!! GAME(5): removing Rock\n"
                          "!! GAME(5): removing Wreck\n"
                          "!! GAME(5): level deleted.\n"))
        << run.out();
    ASSERT_TRUE(run.waitForOutput("level deleted.\n!! GAME(5): Level::LEvel: called\n"));
    ASSERT_TRUE(waitForPicture());
    sleepMs(500);
    screen::press("Escape");
    ASSERT_TRUE(waitForColour(first_button, green));
    EXPECT_EQ(firstLabel(), continue_game) << "of the new life";
    screen::closeWindow();
    EXPECT_EQ(run.wait(), 0) << run.err();
    EXPECT_EQ(run.err(), "");
}

TEST(Flight, ShipWithoutAPilotEndsAsSoonAsItStarts) {
    TinyGame game;
    game.replace("<UserControl/>", "");
    GameRun run(game.getDirectory());
    ASSERT_TRUE(waitForMenu(run));
    screen::press("Return");
    EXPECT_EQ(run.wait(), 0);
    EXPECT_EQ(run.err(),
              "ERROR: Exception: Galaxy::run: player starship must have PlayerControl\n");
}
