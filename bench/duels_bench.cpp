#include "bench/fighters.h"
#include "game/galaxy.h"
#include "game/moving_game_object.h"
#include "tests/support/silence.h"
#include "tests/support/sprites.h"
#include "tests/support/temp_dir.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

// Are the pilots worth fighting? Each kind of ship of the shipped game fights a hundred duels
// against its like, in frames of 20 milliseconds and without a picture. The counters tell how many
// of them end within three minutes, how many take both ships, and how many seconds they last.

namespace {

constexpr int num_duels = 100;
constexpr int frame_time = 20;             // milliseconds
constexpr int time_limit = 3 * 60 * 1000;  // milliseconds
constexpr float start_distance = 600;      // world units, within the reach of every radar

struct Arena : Galaxy {
    using Galaxy::detectCollisions, Galaxy::Galaxy, Galaxy::update;
};

/// An otherwise empty galaxy of the game with two ships of one kind, each the other's only target.
std::string makeArena(const std::string& game, const std::string& ship) {
    const auto makeDuellist = [&](int id, int opponent) {
        const std::string pilot =
            fighters::makePilot("<NavEntry speed='50' point='P(0|0|0)'/>",
                                "<AITarget id='" + std::to_string(opponent) + "'/>");
        return fighters::makeShip(ship, id, pilot);
    };
    return fighters::makeGalaxy(game, makeDuellist(1, 2) + makeDuellist(2, 1));
}

/// Puts a ship at `place`, looking anywhere.
void lineUp(_GameObject* ship, const Point4& place, std::mt19937& random) {
    std::normal_distribution<float> any;
    const Vector4 course = Vector4(any(random), any(random), any(random), 1).normalize();
    ship->setPosition(place);
    ship->setOrientation(course);
    static_cast<_MovingGameObject*>(ship)->setHeading(course);
}

struct Outcome {
    double seconds;  ///< until one of the ships was gone, or until time was up
    bool both_lost;  ///< they ran into each other, most likely
};

Outcome fight(const XMLElement& element, unsigned seed) {
    Arena arena(element, nullptr);
    const ObjectSlot one = arena.getObjectById(1 | GO_STARSHIP);
    const ObjectSlot other = arena.getObjectById(2 | GO_STARSHIP);
    std::mt19937 random(seed);
    lineUp(*one, Point4(), random);
    lineUp(*other, Point4(0, 0, start_distance, 1), random);
    srand(seed);

    int time = 0;
    for (; time < time_limit && *one && *other; time += frame_time) {
        arena.update(frame_time);
        arena.detectCollisions();
    }
    return {time / 1000.0, !*one && !*other};
}

/// Plays the duels of the kind of that number, in the order of the names of their hulls.
void duels(benchmark::State& state) {
    const Silence silence;
    sprites::registerExplosions();
    fighters::loadParts();
    const std::string game = fighters::readGame();
    const auto kinds = fighters::findKinds(game);
    const auto& [hull, ship] = *std::next(kinds.begin(), state.range(0));
    const TempDir dir;
    const XMLParser arena(dir.write("arena.xml", makeArena(game, ship)));

    std::vector<Outcome> outcomes;
    for (auto _ : state)
        for (unsigned seed = 1; seed <= num_duels; ++seed)
            outcomes.push_back(fight(arena.getRootElement(), seed));

    std::ranges::sort(outcomes, {}, &Outcome::seconds);
    const auto in_time = [](const Outcome& o) { return o.seconds < time_limit / 1000.0; };
    const auto count = [&](auto which) {
        return static_cast<double>(std::ranges::count_if(outcomes, which));
    };
    state.SetLabel(hull);
    state.counters["in time"] = count(in_time);
    state.counters["both lost"] = count(&Outcome::both_lost);
    state.counters["shortest"] = outcomes.front().seconds;
    state.counters["median"] = outcomes[outcomes.size() / 2].seconds;
    state.counters["longest"] = outcomes.back().seconds;
}
BENCHMARK(duels)
    ->DenseRange(0, static_cast<int>(fighters::findKinds(fighters::readGame()).size()) - 1)
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

}  // namespace
