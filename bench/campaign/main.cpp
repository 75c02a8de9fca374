// Can the levels of the shipped game be won, and how fast? A plain pilot flies them many times, in
// steps of 20 milliseconds, without a picture and without a sound. From the build folder:
//
//     ./bench/tarvex_campaign [LEVEL|all|row] [FLIGHTS] [SEED]
//
// LEVEL counts from 1. "all" begins every level with a new ship; "row" flies them one after the
// other, and the ship goes on as it is. Quartiles are those of the flights that were won.

#include "3d/font_factory.h"
#include "3d/gfx_factory.h"
#include "bench/campaign/blind.h"
#include "bench/campaign/flight.h"
#include "bench/campaign/game_elements.h"
#include "bench/campaign/plain_pilot.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "main/exception.h"
#include "tests/support/sprites.h"
#include "tests/support/temp_dir.h"
#include "xml/xml_parser.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr const char* game_file = "../data/game.xml";
constexpr unsigned process_limit = 120;  // seconds, against what no time limit of the game ends

using Flights = std::vector<std::unique_ptr<Flight>>;

/// What a child sends to its parent for each level that it has flown.
struct Report {
    unsigned level;
    Result result;
};

/// The flights show no explosions, but ask how long they take.
void addExplosions() {
    const TempDir dir;
    sprites::writeExplosions(dir);
    for (const auto& [name, files] :
         {std::pair("starship_explosion", "explosion*.png"),
          std::pair("torpedo_explosion", "torpedo_explosion_blue*.png")})
        GFX_Factory::getInstance()->addAnimatedSprite(name, (dir / sprites::series) + files,
                                                      sprites::explosion_frames);
}

/// Flies the levels in a row until one is not won.
void flyRow(Flights& flights, unsigned first, unsigned last, Starship& ship, int out) {
    PlainPilot pilot(ship);
    for (unsigned level = first; level < last; ++level) {
        const Report report = {level, flights[level]->fly(pilot)};
        if (write(out, &report, sizeof report) != sizeof report) _exit(1);
        if (report.result.outcome != WON) return;
    }
}

/// A flight in a process of its own; what it finds goes into the pipe `out`.
void start(Flights& flights, unsigned first, unsigned last, Starship& ship, unsigned seed,
           int out) {
    if (fork() != 0) return;
    alarm(process_limit);
    srand(seed);
    std::cerr.setstate(std::ios::failbit);
    try {
        flyRow(flights, first, last, ship, out);
    } catch (const Exception& e) {
        std::cerr.clear();
        std::cerr << "seed " << seed << ": " << e;
        _exit(1);
    }
    _exit(0);
}

/// Waits for one process; false if it failed.
bool waitForOne() {
    int status = 0;
    wait(&status);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Flies the levels from `first` up to `last` in a row, so many times, on all processors.
std::vector<Report> flyMany(Flights& flights, unsigned first, unsigned last, Starship& ship,
                            unsigned count, unsigned seed) {
    const unsigned at_once = std::max(1U, std::thread::hardware_concurrency());
    FILE* results = tmpfile();
    unsigned failures = 0;
    for (unsigned i = 0; i < count; ++i) {
        if (i >= at_once) failures += !waitForOne();
        start(flights, first, last, ship, seed + i, fileno(results));
    }
    for (unsigned i = std::min(at_once, count); i > 0; --i) failures += !waitForOne();
    if (failures > 0) std::cerr << failures << " flights failed\n";

    std::vector<Report> reports;
    rewind(results);
    for (Report report; fread(&report, sizeof report, 1, results) == 1;) reports.push_back(report);
    fclose(results);
    return reports;
}

/// Median and quartiles of one field of all results.
void printQuartiles(const char* name, const std::vector<Result>& results, float Result::*field) {
    std::vector<float> values;
    for (const Result& r : results) values.push_back(r.*field);
    std::ranges::sort(values);
    const auto at = [&](std::size_t quarter) { return values[(values.size() - 1) * quarter / 4]; };
    std::printf("   %-22s %6.0f  (%.0f to %.0f)\n", name, at(2), at(1), at(3));
}

void print(unsigned level, const std::vector<Report>& reports) {
    std::vector<Result> won;
    unsigned flown = 0;
    unsigned ends[ENDLESS + 1] = {};
    for (const Report& report : reports) {
        if (report.level != level) continue;
        ++flown;
        ++ends[report.result.outcome];
        if (report.result.outcome == WON) won.push_back(report.result);
    }
    const double share = flown > 0 ? 100.0 * static_cast<double>(won.size()) / flown : 0;
    std::printf("level %u: won %u of %u (%.0f %%), shot down %u, collided %u, without an end %u\n",
                level + 1, ends[WON], flown, share, ends[SHOT_DOWN], ends[COLLIDED], ends[ENDLESS]);
    if (won.empty()) return;
    printQuartiles("seconds", won, &Result::seconds);
    printQuartiles("hull, percent", won, &Result::hull);
    printQuartiles("weakest part, percent", won, &Result::weakest_part);
    printQuartiles("fuel, percent", won, &Result::fuel);
    printQuartiles("torpedoes", won, &Result::torpedoes);
    printQuartiles("points", won, &Result::points);
    printQuartiles("crashed ships", won, &Result::crashed);
}

void run(const std::string& which, unsigned count, unsigned seed) {
    std::cout.setstate(std::ios::failbit);  // the game's own words
    blind::start(0);
    addExplosions();
    const XMLParser parser(game_file);
    const auto sections = elements::findSections(parser.getRootElement());
    FontFactory::getInstance()->load(sections.at("Fonts"));
    PartStore::getInstance()->load(sections.at("PartSection"));
    Flights flights;
    for (XMLElement level = sections.at("LevelSection").getFirstChild(); !level.isNull();
         level = level.getNext())
        flights.push_back(std::make_unique<Flight>(sections.at("WorldSection"), level));
    Starship ship(sections.at("Starship"));

    const auto levels = static_cast<unsigned>(flights.size());
    const auto chosen = static_cast<unsigned>(std::atoi(which.c_str()));
    if (which == "row") {
        const auto reports = flyMany(flights, 0, levels, ship, count, seed);
        for (unsigned level = 0; level < levels; ++level) print(level, reports);
        return;
    }
    if (which != "all" && (chosen < 1 || chosen > levels)) throw Exception("no level " + which);
    for (unsigned level = 0; level < levels; ++level) {
        if (which != "all" && chosen != level + 1) continue;
        print(level, flyMany(flights, level, level + 1, ship, count, seed));
        std::fflush(stdout);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const auto number = [&](int i, int otherwise) {
        return static_cast<unsigned>(argc > i ? std::atoi(argv[i]) : otherwise);
    };
    try {
        run(argc > 1 ? argv[1] : "all", number(2, 100), number(3, 1));
    } catch (const Exception& e) {
        std::cerr << "ERROR: " << e;
        return 1;
    }
    return 0;
}
