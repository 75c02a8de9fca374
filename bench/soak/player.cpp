#include "bench/soak/player.h"

#include "bench/campaign/plain_pilot.h"
#include "bench/soak/simulated_time.h"
#include "bench/soak/watch.h"
#include "game/camera_management.h"
#include "game/galaxy.h"
#include "game/starship.h"
#include "game/story_teller.h"
#include "main/exception.h"

#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

namespace {

// Milliseconds of simulated time.
constexpr std::uint64_t frame_time = 20;
constexpr std::uint64_t second = 1000, minute = 60 * second, hour = 60 * minute;
constexpr std::uint64_t check_time = second;
constexpr std::uint64_t loiter_time = 20 * minute;
constexpr std::uint64_t shot_time = 200;
constexpr std::uint64_t flight_limit = 2 * hour;

constexpr unsigned loiter_games = 5;  // one in so many games begins with shots at nothing
constexpr int quiet_frames = 250;     // in the menu, until all sounds are over
constexpr unsigned long lasers_per_round = 4096;

/// What a player may press at any time. Only the page key comes twice: it has more to show.
constexpr SDLKey idle_keys[] = {
    SDLK_F1, SDLK_F2, SDLK_F3,     SDLK_F4,       SDLK_F5,    SDLK_F6,    SDLK_F7,  SDLK_F8,
    SDLK_F1, SDLK_F1, SDLK_PAGEUP, SDLK_PAGEDOWN, SDLK_MINUS, SDLK_MINUS, SDLK_F12,
};

/// The mouse is there for the menu alone.
bool isMenuOpen() {
    return SDL_EventState(SDL_MOUSEBUTTONDOWN, SDL_QUERY) == SDL_ENABLE;
}

bool isStoryFinished() {
    const StoryTeller* story = StoryTeller::getInstance();
    return story && story->getStates()[story->getState()].level_end == LE_FINISHED;
}

}  // namespace

Player::Player(std::vector<std::set<int>> enemies, Watch& watch, std::uint64_t time,
               std::uint64_t warm_up, unsigned seed)
    : enemies(std::move(enemies)),
      watch(watch),
      start(simulated_time::get()),
      time(time),
      warm_up(warm_up),
      chance(seed),
      next_report(start + hour) {
    record.begun.resize(this->enemies.size());
    record.won.resize(this->enemies.size());
}

Player::~Player() = default;

void Player::look() {
    const std::uint64_t now = simulated_time::get();
    const bool stands_still = now == last_frame;
    last_frame = now;
    watch.checkErrorLines();
    if (now >= next_report) report();
    if (now >= start + time) {
        SDL_Event event{};
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
        return;
    }

    if (isMenuOpen()) {
        lookAtMenu();
        return;
    }
    menu_frames = 0;
    if (stands_still)
        lookAtLanding();
    else if (auto* ship =
                 dynamic_cast<Starship*>(CameraManagement::getInstance()->getPlayerObject()))
        lookAhead(*ship);
}

/// The menu's frames take no time by themselves.
void Player::lookAtMenu() {
    simulated_time::pass(frame_time);
    if (menu_frames == 0) {
        ++record.menus;
        if (!isThere() && !starts_anew) {
            end(isStoryFinished());
            starts_anew = true;
        }
    }
    ++menu_frames;
    if (menu_frames == quiet_frames) {
        watch.checkChannels(record.flights > 0 ? 1 : 0);  // the engine's loop
        press(SDLK_DOWN);
    }
    if (menu_frames == quiet_frames + 1) press(SDLK_UP);
    if (menu_frames == quiet_frames + 2) press(SDLK_RETURN);
}

/// A second frame at the same moment: the landing screen, or the first frame of a level, where the
/// key does no harm.
void Player::lookAtLanding() {
    simulated_time::pass(frame_time);
    if (isThere()) ++record.landings;
    press(SDLK_F1);
}

void Player::lookAhead(Starship& ship) {
    const std::uint64_t now = simulated_time::get();
    if (!isThere()) begin(ship);
    const Galaxy& galaxy = *ship.getGalaxy();
    watch.checkNumbers(galaxy);
    lasers = galaxy.getNumLasers();
    torpedoes = galaxy.getNumTorpedos();
    if (now >= next_check) {
        watch.checkObjects(galaxy);
        next_check = now + check_time;
    }
    if (now > flight_start + flight_limit)
        throw Exception("a flight without an end in level " + std::to_string(level + 1));

    if (now < loiter_end)
        fire();
    else
        pilot->fly(static_cast<int>(frame_time));
    touchSomeKey();
}

/// A flight that ended without a menu was won.
void Player::begin(Starship& ship) {
    const std::uint64_t now = simulated_time::get();
    if (starts_anew) {
        starts_anew = false;
        level = 0;
        pilot = std::make_unique<PlainPilot>(ship);
        if (++games % loiter_games == 0) loiter_end = now + loiter_time;
    } else {
        end(true);
        ++level;
    }
    here = ship.getGalaxy()->getObjectById(ship.getId());
    pilot->enter(*ship.getGalaxy(), enemies.at(level));
    ++record.flights;
    ++record.begun[level];
    flight_start = now;
    next_menu = now + choose(menu_pause);
    watch.checkHoldings(level, now < start + warm_up);
}

void Player::end(bool won) {
    if (won) ++record.won[level];
    record.lasers += lasers;
    record.torpedoes += torpedoes;
    record.rounds_of_lasers += lasers / lasers_per_round;
}

void Player::fire() {
    const std::uint64_t now = simulated_time::get();
    if (now < next_shot) return;
    press(SDLK_RETURN);
    next_shot = now + shot_time;
}

void Player::touchSomeKey() {
    const std::uint64_t now = simulated_time::get();
    if (now >= next_menu) {
        press(SDLK_ESCAPE);
        next_menu = now + choose(menu_pause);
    } else if (now >= next_key) {
        press(idle_keys[chance() % std::size(idle_keys)]);
        next_key = now + choose(key_pause);
    }
}

void Player::press(SDLKey key) const {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

bool Player::isThere() const {
    return here && *here;
}

std::uint64_t Player::choose(const Pause& pause) {
    return pause.least + chance() % (pause.most - pause.least);
}

void Player::report() {
    const Holdings now = watch.takeStock();
    std::printf("%3llu h: %4u flights,",
                static_cast<unsigned long long>((next_report - start) / hour), record.flights);
    for (std::size_t i = 0; i < enemies.size(); ++i)
        std::printf(" %u/%u", record.won[i], record.begun[i]);
    std::printf(
        " won; %u menus, %u landings; at most %zu objects, %d channels; heap %zu kB, "
        "resident %zu kB, %ld files, %ld names\n",
        record.menus, record.landings, watch.getMostObjects(), watch.getMostChannels(),
        now.heap / 1024, now.resident / 1024, now.files, now.names);
    std::fflush(stdout);
    next_report += hour;
}
