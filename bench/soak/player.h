#pragma once

#include "game/object_slot.h"

#include <SDL.h>

#include <cstdint>
#include <memory>
#include <random>
#include <set>
#include <vector>

class PlainPilot;
class Starship;
class Watch;

/// Plays the game from the menu on, over and over, for as long as it is told to: looks at every
/// frame that is shown and presses keys. The plain pilot flies; the player presses its way through
/// menus and landings, calls the menu now and then in the middle of a flight, changes cameras and
/// display pages, and in some games first fires at nothing for a long time, until the numbers of
/// shots come round.
class Player {
public:
    /// How it went so far.
    struct Record {
        unsigned flights = 0;
        std::vector<unsigned> begun, won;  ///< by level
        unsigned menus = 0, landings = 0, rounds_of_lasers = 0;
        unsigned long lasers = 0, torpedoes = 0;
    };

    /// `enemies` by level: the ships that attack the player. `time` is in milliseconds, of which
    /// the first `warm_up` show what the game needs.
    Player(std::vector<std::set<int>> enemies, Watch& watch, std::uint64_t time,
           std::uint64_t warm_up, unsigned seed);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// To be called for every frame that is shown. Throws Exception when the watch finds something.
    void look();

    const Record& getRecord() const { return record; }

private:
    /// How long to wait from one press to the next, in milliseconds.
    struct Pause {
        std::uint64_t least, most;
    };
    static constexpr Pause menu_pause = {20'000, 300'000};
    static constexpr Pause key_pause = {1'000, 20'000};

    void lookAtMenu();
    void lookAtLanding();
    void lookAhead(Starship& ship);
    void begin(Starship& ship);
    /// Takes note of how the flight was that is over.
    void end(bool won);
    void fire();
    void touchSomeKey();
    void press(SDLKey key) const;
    bool isThere() const;
    /// Any time between two.
    std::uint64_t choose(const Pause& pause);
    /// Prints a line.
    void report();

    std::vector<std::set<int>> enemies;
    Watch& watch;
    const std::uint64_t start, time, warm_up;
    std::mt19937 chance;
    Record record;
    std::unique_ptr<PlainPilot> pilot;
    ObjectSlot here;  ///< the ship's in the present galaxy: reads null when that is gone
    std::size_t level = 0;
    bool starts_anew = true;  ///< the next flight is that of a new game
    unsigned games = 0;
    int menu_frames = 0;
    unsigned long lasers = 0, torpedoes = 0;  ///< fired in the present galaxy

    // When, by the simulated time.
    std::uint64_t last_frame = 0, flight_start = 0, loiter_end = 0, next_check = 0, next_menu = 0,
                  next_key = 0, next_shot = 0, next_report = 0;
};
