// Does the game stay sound however long it is played? The whole game, menu and mixer included, is
// played in one process, level after level and game after game, by the plain pilot and by simulated
// time: without a window, and with a sound device that nobody hears. From the build folder:
//
//     ./bench/tarvex_soak [HOURS] [SEED]
//
// Ends with status 0 when all was well, and with one line and status 1 at the first thing that was
// not.

#include "bench/campaign/blind.h"
#include "bench/campaign/game_elements.h"
#include "bench/soak/player.h"
#include "bench/soak/simulated_time.h"
#include "bench/soak/watch.h"
#include "main/exception.h"
#include "main/game.h"
#include "xml/xml_parser.h"

#include <SDL.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <set>
#include <vector>

namespace {

constexpr const char* game_file = "../data/game.xml";
constexpr std::uint64_t hour = 60 * 60 * 1000;       // milliseconds
constexpr std::uint64_t longest_warm_up = 2 * hour;  // until every level has been seen and heard

/// Who looks at the frames; null before and after the game.
Player* player = nullptr;

std::vector<std::set<int>> findEnemies() {
    const XMLParser parser(game_file);
    const auto sections = elements::findSections(parser.getRootElement());
    std::vector<std::set<int>> enemies;
    elements::forEachChild(sections.at("LevelSection"), "Level", [&](const XMLElement& level) {
        enemies.push_back(
            elements::findEnemies(elements::findGalaxy(sections.at("WorldSection"), level)));
    });
    return enemies;
}

void print(const Player::Record& record, const Watch& watch) {
    std::printf(
        "%u flights, %lu lasers, %lu torpedoes; the numbers of lasers came round %u times\n",
        record.flights, record.lasers, record.torpedoes, record.rounds_of_lasers);
    for (const auto& [level, now] : watch.getHoldings()) {
        const Holdings& before = watch.getAllowance().at(level);
        std::printf(
            "level %zu begins with %zu kB of heap (%zu at first), %zu kB resident (%zu), "
            "%ld files (%ld), %ld names (%ld)\n",
            level + 1, now.heap / 1024, before.heap / 1024, now.resident / 1024,
            before.resident / 1024, now.files, before.files, now.names, before.names);
    }
    for (const auto& [line, times] : watch.getErrorLines())
        std::printf("%lu times on standard error: %s\n", times, line.c_str());
}

/// The clock begins so early before the end of SDL's count that the game passes it half way.
void run(std::uint64_t time, unsigned seed) {
    std::cout.setstate(std::ios::failbit);  // the game's own words
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    simulated_time::set(std::numeric_limits<Uint32>::max() - time / 2);
    Watch watch;
    blind::start(SDL_INIT_AUDIO);
    std::atexit(simulated_time::stop);  // before SDL's own end
    {
        Game game(game_file);
        Player somebody(findEnemies(), watch, time, std::min(longest_warm_up, time / 2), seed);
        player = &somebody;
        game.start();
        player = nullptr;
        print(somebody.getRecord(), watch);
    }
    watch.checkErrorLines();
    simulated_time::pass(10 * 1000);
    watch.checkChannels(0);
}

}  // namespace

/// A frame is there to be seen.
void SDL_GL_SwapBuffers() {
    if (player) player->look();
}

int main(int argc, char** argv) {
    const double hours = argc > 1 ? std::atof(argv[1]) : 24;
    const int seed = argc > 2 ? std::atoi(argv[2]) : 1;
    try {
        run(static_cast<std::uint64_t>(hours * hour), static_cast<unsigned>(seed));
        std::printf("no fault in %g simulated hours\n", hours);
    } catch (const Exception& e) {
        std::cerr << "ERROR: " << e;
        return 1;
    }
    return 0;
}
