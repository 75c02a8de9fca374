// A tour of the shipped game, played with real keys and a real mouse: the menu, a flight, a fight,
// a landing, a level won, a ship lost, each camera, each page of the display. Leaves a numbered
// picture of each stop in the folder "tour". tools/tour calls it.

#include "bench/campaign/plain_pilot.h"
#include "bench/tour/passenger.h"
#include "game/camera_management.h"
#include "game/cockpit.h"
#include "game/control.h"
#include "game/galaxy.h"
#include "game/game_camera_interface.h"
#include "game/hull.h"
#include "game/mfd.h"
#include "game/shield.h"
#include "game/starship.h"
#include "tests/support/files.h"
#include "tests/support/screen.h"

#include <SDL.h>
#include <png.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <iomanip>
#include <map>
#include <optional>
#include <sstream>
#include <utility>

using namespace std::string_literals;

namespace {

const std::filesystem::path folder = "tour";
constexpr double least_content = 0.001, least_change = 0.001;  // shares of a picture
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int memory_limit = 100000;  // megabytes: a sanitizer takes what it likes
#else
constexpr int memory_limit = 400;  // megabytes
#endif

// Milliseconds of the game from frame to frame: with nobody at the controls, with others near, and
// with nobody nearer than `lonely` units.
constexpr int still_time = 20, flight_time = 50, cruise_time = 150;
constexpr float lonely = 900;
constexpr float hit_energy = 15;                   // a bolt has more; what leaks in a frame is less
constexpr int stop_limit = 60, level_limit = 400;  // seconds of the game
constexpr int ships = 3;                           // how many the first level may take
constexpr float in_sight = 900, hands_off = 150;   // units above the ground

const std::string start_button = "mousemove 575 462 ", quit_button = "mousemove 375 462 ",
                  video_button = "mousemove 415 228 ";
constexpr int buoy = 10 | GO_STARSHIP, wreck = 2 | GO_STARSHIP, halden = 1 | GO_PLANET;

using Condition = std::function<bool()>;

/// The player's ship was lost before its time.
struct Lost {};

CameraManagement& cameras() {
    return *CameraManagement::getInstance();
}

/// Null in the first menu, and when the ship is lost.
Starship* player() {
    return dynamic_cast<Starship*>(cameras().getPlayerObject());
}

/// The pointer is there for the menu alone.
bool isMenu() {
    return SDL_ShowCursor(SDL_QUERY) == SDL_ENABLE;
}

bool isFlight() {
    return !isMenu() && player() && player()->getGalaxy();
}

/// Another object of the galaxy, null when it is gone.
_GameObject* find(int id) {
    return *player()->getGalaxy()->getObjectById(id);
}

/// From the player to another object's bounds.
float getDistance(const _GameObject& object) {
    return Vector4(player()->getPosition(), object.getPosition()).getLength() - object.getSize();
}

/// The other ships for which a condition holds.
template <class Holds>
std::set<int> findShips(Holds holds) {
    std::set<int> ids;
    for (const auto& [id, slot] : player()->getGalaxy()->getObjects())
        if (const auto* ship = dynamic_cast<Starship*>(*slot); ship && ship != player())
            if (holds(*ship)) ids.insert(id);
    return ids;
}

bool isLonely() {
    return (!find(halden) || getDistance(*find(halden)) > in_sight) &&
           findShips([](const Starship& s) { return getDistance(s) < lonely; }).empty();
}

bool watchesFront() {
    return cameras().getCurrentCamera() == player()->getCamera(CPOS_FRONT);
}

Condition watches(CAMPOSenum place) {
    return [=] { return cameras().getCurrentCamera() == player()->getCamera(place); };
}

Condition watches(CAMTYPEenum type) {
    return [=] { return cameras().getCurrentCameraType() == type && !watchesFront(); };
}

bool isFullScreen() {
    return SDL_GetVideoSurface()->flags & SDL_FULLSCREEN;
}

/// What is left of the buoy, in units and percent.
float findBuoyHealth() {
    const auto* target = dynamic_cast<Starship*>(find(buoy));
    return target ? target->getShield()->getCurrentEnergy() + target->getHull()->getIntegrity() : 0;
}

bool isBuoyLost() {
    const auto* target = dynamic_cast<Starship*>(find(buoy));
    return !target || target->getHull()->getIntegrity() <= 0;
}

/// The plain pilot of the campaign, at the real keys.
class Pilot : public PlainPilot {
public:
    using PlainPilot::PlainPilot;

    bool launches = true;  ///< uses the torpedoes

protected:
    void press(SDLKey key) const override {
        static const std::map<SDLKey, const char*> names = {
            {SDLK_a, "a"},         {SDLK_d, "d"},           {SDLK_w, "w"},
            {SDLK_s, "s"},         {SDLK_UP, "Up"},         {SDLK_DOWN, "Down"},
            {SDLK_SPACE, "space"}, {SDLK_RETURN, "Return"}, {SDLK_BACKSPACE, "BackSpace"}};
        if (launches || key != SDLK_BACKSPACE) screen::act("key "s + names.at(key));
    }
};

class Tour {
public:
    void take();

private:
    void seeMenu();
    void lookAround();
    void shoot();
    void land();
    void launch();
    bool win();
    void lose();
    void leave();

    /// So many frames, and what the pilot makes of them. Throws Lost when the ship is lost.
    void play(int frames = 1);
    void fly(Starship& ship);
    /// Types keys by the names that xdotool has for them, waits until a condition holds, and some
    /// frames more, and keeps a picture under that name, if it has one.
    void stop(const std::string& keys, const std::string& name, const Condition& holds,
              int frames = 3, int limit = stop_limit);
    /// Keeps what is on the screen, if it shows anything, and anything new.
    void keep(const std::string& name);
    /// Gives a picture its number, and returns the name of the file.
    std::string write(const screen::Picture& picture, const std::string& name);

    std::vector<std::string> pictures;  ///< files
    screen::Picture last;
    std::optional<Pilot> pilot;
    const Galaxy* entered = nullptr;  ///< by the pilot
    int goal = 0;                     ///< where the pilot flies; 0: what the story asks for
    bool hands_on = false;            ///< the pilot is at the keys
    bool launches = false;            ///< and uses the torpedoes
    bool is_doomed = false;           ///< the ship is to be lost
    int unseen = 0;                   ///< milliseconds since the pilot last looked
    int standing = 0;                 ///< frames without a move in spite of all speed: a landing
};

void Tour::play(int frames) {
    for (; frames > 0; --frames) {
        const bool flies = isFlight();
        const Point4 before = flies ? player()->getPosition() : Point4();
        const int time = !hands_on || !flies ? still_time : isLonely() ? cruise_time : flight_time;
        passenger::ride(time);

        if (flies && !player() && !is_doomed) throw Lost();
        if (!flies || !isFlight()) continue;
        const bool stands = player()->getVelocity() > 1 && player()->getPosition() == before;
        standing = stands ? standing + 1 : 0;
        unseen += time;
        if (hands_on && passenger::isIdle()) fly(*player());
    }
}

void Tour::fly(Starship& ship) {
    if (!pilot || &pilot->getShip() != &ship) {
        pilot.emplace(ship);
        entered = nullptr;
    }
    if (ship.getGalaxy() != entered) {
        entered = ship.getGalaxy();
        pilot->enter(*entered, findShips([](const Starship& s) {
            return s.getControl()->getType() == CTRL_AI;
        }));
    }
    pilot->launches = launches;
    const int time = std::exchange(unseen, 0);
    if (goal && find(goal))
        pilot->flyTo(find(goal)->getPosition(), time);
    else
        pilot->fly(time);
}

void Tour::stop(const std::string& keys, const std::string& name, const Condition& holds,
                int frames, int limit) {
    if (!keys.empty()) {
        screen::act("key " + keys);
        play(2);
    }
    const Uint32 start = SDL_GetTicks();
    while (!holds()) {
        play();
        if (SDL_GetTicks() - start < static_cast<Uint32>(limit) * 1000) continue;
        const std::string what = name.empty() ? "answer to " + keys : name;
        write(screen::capture(), "failed");
        passenger::fail("no " + what + " after " + std::to_string(limit) + " s");
    }
    play(frames);
    if (!name.empty()) keep(name);
}

std::string Tour::write(const screen::Picture& picture, const std::string& name) {
    std::ostringstream text;
    text << std::setfill('0') << std::setw(2) << pictures.size() + 1 << '-' << name << ".png";
    const std::string file = folder / text.str();
    pictures.push_back(file);
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = screen::width;
    image.height = screen::height;
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, file.c_str(), 0, picture.data(), 0, nullptr))
        passenger::fail("cannot write " + file);
    return file;
}

void Tour::keep(const std::string& name) {
    const screen::Picture picture = screen::capture(), blank(picture.size(), picture.front());
    const std::string file = write(picture, name);
    if (screen::difference(picture, blank) < least_content) passenger::fail(file + " is blank");
    if (!last.empty() && screen::difference(picture, last) < least_change)
        passenger::fail(file + " shows nothing new");
    last = picture;
}

void Tour::seeMenu() {
    stop("alt+c", "menu", isMenu, 10);
    screen::act(video_button + "click 1");
    stop("", "menu-video-lit", isMenu, 10);
    screen::act(start_button + "mousedown 1");
    stop("", "menu-start-pressed", isMenu, 10);
    screen::act("mouseup 1");
    stop("", "level-one", isFlight, 5);
}

void Tour::lookAround() {
    const Mfd& display = *player()->getHull()->getCockpit()->getMFD(0);
    const _2D_Rep* first = display.getCurrent();
    do {
        const _2D_Rep* before = display.getCurrent();
        stop("minus", "display-page", [&] { return display.getCurrent() != before; });
    } while (display.getCurrent() != first);

    const Condition done = passenger::isIdle;
    const auto throttle = [] { return player()->getControl()->getThrottle(); };
    stop("Up Up Up", "throttle", [] { return player()->getVelocity() > 15; });
    stop("Down Down Down", "", [=] { return throttle() == 0; });
    stop("F6", "camera-left", watches(CPOS_LEFT));
    stop("F7", "camera-right", watches(CPOS_RIGHT));
    stop("F8", "camera-behind", watches(CPOS_BACK));
    stop("F5", "", watchesFront);
    stop("--repeat 12 alt+Left", "camera-turned", done);
    stop("--repeat 12 alt+Right", "", done);
    stop("F2", "camera-newest-ship", watches(CAM_STARSHIP));
    stop("Prior", "camera-next-ship", watches(CAM_STARSHIP));
    stop("F3", "camera-newest-planet", watches(CAM_PLANET));
    stop("Next", "camera-next-planet", watches(CAM_PLANET));
    stop("F1", "", watchesFront);
    stop("alt+w", "wire", done);
    stop("alt+f", "flat", done);
    stop("alt+p", "smooth", done);
    stop("alt+t", "one-texture", done);
    stop("alt+n alt+c", "frame-rate", done);
    // The layer over SDL 2, with versions from 1.2.50 on, may keep the window as large as the
    // screen where no window manager is.
    if (SDL_Linked_Version()->patch < 50) {
        stop("alt+Return", "full-screen-corner", isFullScreen);
        stop("alt+Return", "", [] { return !isFullScreen(); });
    }

    constexpr size_t size = 18 + screen::width * screen::height * 3;
    std::filesystem::remove("screenshot.tga");
    stop("Print", "", [] { return readFile("screenshot.tga").size() == size; });
    std::filesystem::rename("screenshot.tga", folder / "screenshot.tga");
    stop("alt+c", "", done);
}

/// The first buoy, with lasers alone, and its picture on the display.
void Tour::shoot() {
    hands_on = true;
    launches = false;
    const auto is_locked = [] {
        const ObjectSlot target = player()->getSelectedObject();
        return target && *target && *target == find(buoy);
    };
    stop("minus", "target", is_locked);
    const auto is_hit = [before = 0.0F]() mutable {
        const float health = findBuoyHealth();
        return std::exchange(before, health) > health + hit_energy;
    };
    stop("", "hit", is_hit, 0);
    stop("", "burst", isBuoyLost, 10);
}

void Tour::land() {
    const auto isWithin = [](float distance) {
        return [=] { return getDistance(*find(halden)) < distance; };
    };
    goal = halden;
    stop("", "planet-ahead", isWithin(in_sight), 0, level_limit);
    stop("", "approach", isWithin(hands_off), 0);
    hands_on = false;  // any key would end the landing
    stop("", "landing", [this] { return standing > 3; });
    stop("space", "", [this] { return standing == 0; });
    stop("F8", "take-off", watches(CPOS_BACK), 20);
    stop("F5", "", watchesFront);
    goal = 0;
}

/// A torpedo on its way, the rest of the level, and the landing that ends it, whenever that comes.
void Tour::launch() {
    const auto meanwhile = [this](const Condition& holds) {
        return [this, holds] {
            if (standing > 3) screen::act("key space");
            return holds();
        };
    };
    hands_on = launches = true;
    if (!cameras().isAutoWeapon()) stop("F12", "", passenger::isIdle);
    const Condition on_torpedo = meanwhile(watches(CAM_TORPEDO));
    stop("", "torpedo-followed", on_torpedo, 6, level_limit);
    stop("F1", "", watchesFront);
    stop("F4", "", on_torpedo, 0, level_limit);  // the same picture, by hand
    stop("F12 F1", "", watchesFront);

    const auto is_next = meanwhile([] { return find(wreck)->getName() == "Wreck"; });
    stop("", "level-two", is_next, 0, level_limit);
}

/// The first level, to its end. False if the ship is lost; then its pictures are gone, and a new
/// ship is ready at the start.
bool Tour::win() {
    const size_t before = pictures.size();
    goal = 0;
    try {
        shoot();
        land();
        launch();
        return true;
    } catch (const Lost&) {
        hands_on = false;
        for (; pictures.size() > before; pictures.pop_back())
            std::filesystem::remove(pictures.back());
        stop("", "menu-after-loss", isMenu);
        stop("Return", "", isFlight);
        return false;
    }
}

/// At full speed into the wreck.
void Tour::lose() {
    is_doomed = true;
    goal = wreck;
    stop("", "end", watches(CAM_EXPLOSION), 20);
    hands_on = false;
    stop("", "menu-new-game", isMenu, 10);
    screen::act(start_button + "click 1");
    stop("", "new-game", isFlight, 5);
}

void Tour::leave() {
    stop("Escape", "menu-pause", isMenu, 10);
    const std::string status = readFile("/proc/self/status");
    const int memory = std::stoi(status.substr(status.find("VmHWM:") + 6)) / 1024;
    std::printf("tour: %zu pictures, at most %d MB in use\n", pictures.size(), memory);
    if (memory > memory_limit)
        passenger::fail("more than " + std::to_string(memory_limit) + " MB in use");
    screen::act(quit_button + "click 1");
}

void Tour::take() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    seeMenu();
    lookAround();
    for (int ship = 1; !win(); ++ship)
        if (ship == ships) passenger::fail("every ship was lost in the first level");
    lose();
    leave();
}

}  // namespace

void passenger::ride() {
    Tour().take();
}
