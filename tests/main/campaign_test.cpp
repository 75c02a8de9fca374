// A whole campaign of two tiny levels, won and begun anew by keys alone.

#include "game/camera_management.h"
#include "game/hull.h"
#include "game/starship.h"
#include "game/tank.h"
#include "game/torpedo_launcher.h"
#include "main/game.h"
#include "tests/support/events.h"
#include "tests/support/tiny_game.h"
#include "tests/support/window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace {

/// A stream's buffer that hands each line to a test, as it is written.
struct LineWatch : std::streambuf {
    int overflow(int character) override {
        if (character == '\n')
            watcher(std::exchange(line, ""));
        else
            line += static_cast<char>(character);
        return character;
    }
    std::function<void(const std::string&)> watcher;
    std::string line;
};

/// Starts from the menu, shoots in flight, and leaves the landing screen.
Uint32 typeReturn(Uint32 interval, void*) {
    events::push(SDL_KEYDOWN, 1, SDLK_RETURN);
    return interval;
}

/// Level one: a drone vanishes on a planet, then the player lands there. Level two: the landing.
void makeLevels(TinyGame& tiny) {
    const auto state = [](const std::string& deed, int next) {
        return "<State><Transition " + deed + " new_state='" + std::to_string(next) + "'/></State>";
    };
    const std::string lost = "event='destroyed' object='starship' id='5'",
                      landed = "event='landed_on' object='planet' id='1'";
    const std::string& xml = tiny.getXml();
    const size_t from = xml.find("<Level "), to = xml.find("<StoryTeller/>");
    const std::string level = xml.substr(from, to - from), start = "<StoryTeller>",
                      end = "<State level_end='finished'/></StoryTeller>";
    tiny.replace("<StoryTeller/>", start + state(lost, 1) + state(landed, 2) + end + "</Level>" +
                                       level + start + state(landed, 1) + end);
    // Too large a planet to be missed in a slow frame.
    tiny.write("data/planet.ASE", boxModel(20));
    tiny.replace("rep3d='../data/box.ASE' pos='P(0|0|400)' velocity='0'/>",
                 "rep3d='../data/planet.ASE' pos='P(0|0|150)' velocity='0'/>"
                 "<Starship id='5' name='Drone' pos='P(0|0|150)' orientation='V(0|0|1)' "
                 "up='V(0|1|0)' hull='hull' engine='engine' reactor='reactor' tank='tank'/>");
}

Starship* player() {
    return dynamic_cast<Starship*>(CameraManagement::getInstance()->getPlayerObject());
}

/// The ship that is flown, and that a level begins with when it is not the first of a game.
std::string describe() {
    const Starship* ship = player();
    if (!ship) return "no ship\n";
    std::ostringstream text;
    text << ship->getTorpedoLauncher()->getLoad() << " torpedoes, "
         << ship->getHull()->getIntegrity() << " % hull, speed " << ship->getVelocity()
         << (ship->getTank()->getFuel() < ship->getTank()->getCapacity() ? ", fuel used\n" : "\n");
    return text.str();
}

/// Plays to the third start of a level and tells on standard error what happened.
[[noreturn]] void play() {
    TinyGame tiny;
    makeLevels(tiny);
    std::filesystem::current_path(tiny.getDirectory());
    window();
    std::string story;
    int starts = 0;
    LineWatch watch;
    watch.watcher = [&](const std::string& line) {
        if (line == "GAME: running level...") {
            story += "level: " + describe();
            events::push(SDL_KEYDOWN, 10, SDLK_UP);
            events::push(SDL_KEYDOWN, 1, SDLK_BACKSPACE);
            if (++starts == 3) events::push(SDL_QUIT);
        }
        if (line == "!! GAME(5): removing Drone" && starts == 1) player()->getHull()->damage(40);
        if (line == "!! GAME(5): removing Rock" && starts == 3) story += describe();
        if (line == "GAME: reloading player starship..." || line == "!! MAIN(4): button 2 pressed")
            story += line + '\n';
    };
    std::cout.rdbuf(&watch);
    {
        Game game("../data/game.xml");
        SDL_AddTimer(300, typeReturn, nullptr);
        game.start();
    }
    std::cerr << story;
    std::_Exit(0);
}

}  // namespace

// In a process of its own: a game is built once in a program.
TEST(Campaign, TheShipGoesOnAsItIsAndANewGameHasANewOne) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(play(), testing::ExitedWithCode(0),
                testing::HasSubstr("!! MAIN(4): button 2 pressed\n"
                                   "level: no ship\n"
                                   "level: 3 torpedoes, 80 % hull, speed 10, fuel used\n"
                                   "GAME: reloading player starship...\n"
                                   "!! MAIN(4): button 2 pressed\n"
                                   "level: no ship\n"
                                   "3 torpedoes, 100 % hull"));
}
