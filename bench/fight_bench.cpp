#include "bench/fighters.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/shield.h"
#include "game/starship.h"
#include "tests/support/plain_galaxy.h"
#include "tests/support/silence.h"
#include "tests/support/sprites.h"
#include "tests/support/temp_dir.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <vector>

// What a big fight costs: the sweep with its pilots and the collision pass, in a galaxy and in one
// that goes through all pairs and all objects. Both fight the same fight, frame by frame in turn,
// and must come to the same end.

namespace {

constexpr int frame_time = 20;      // milliseconds
constexpr int warm_up = 50;         // frames until the pilots have found each other
constexpr float room = 150;         // world units between neighbours at first
constexpr float jitter = 40;        // of their places
constexpr int targets_of_each = 6;  // as many as a pilot of the shipped game has

/// The time that this thread has worked, in microseconds: nothing else on the machine counts.
double now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// What a quarter of the values stay below: a frame in which the caches were cold hardly counts.
double quartile(std::vector<double> values) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 4);
    std::ranges::nth_element(values, place);
    return *place;
}

struct Shot : Laser {
    Shot(int number, const Point4& place, const Vector4& direction, const Vector4& up)
        : Laser(nullptr, 15, place, direction, up, 350) {
        setId(number | GO_LASER);
    }
};

/// The ships of a fight, all in a cube in which each has the same room, and none a friend.
class Fleet {
public:
    Fleet(int ships, bool with_pilots) : game(fighters::readGame()) {
        const auto kinds = fighters::findKinds(game);
        std::mt19937 random(1);
        const int side = static_cast<int>(std::ceil(std::cbrt(ships)));
        std::uniform_real_distribution<float> shift(-jitter, jitter);
        std::string text;
        for (int i = 0; i < ships; ++i) {
            const auto& ship = std::next(kinds.begin(), i % static_cast<int>(kinds.size()))->second;
            places.emplace_back(static_cast<float>(i % side) * room + shift(random),
                                static_cast<float>(i / side % side) * room + shift(random),
                                static_cast<float>(i / side / side) * room + shift(random), 1.0F);
            text += fighters::makeShip(
                ship, i + 1, with_pilots ? makePilot(ships, side, random) : "<AIStaticControl/>");
        }
        parser.emplace(dir.write("fight.xml", fighters::makeGalaxy(game, text)));
        for (XMLElement ship = getElement().getFirstChild(); !ship.isNull(); ship = ship.getNext())
            elements.push_back(ship);
    }

    XMLElement getElement() const { return parser->getRootElement(); }

    std::vector<XMLElement> elements;
    std::vector<Point4> places;

private:
    static std::string makePilot(int ships, int side, std::mt19937& random) {
        const auto pick = [&](int below) {
            return std::to_string(std::uniform_int_distribution(0, below)(random));
        };
        const int edge = side * static_cast<int>(room);
        std::string ways, targets;
        for (int i = 0; i < 3; ++i)
            ways += "<NavEntry speed='30' point='P(" + pick(edge) + "|" + pick(edge) + "|" +
                    pick(edge) + ")'/>";
        for (int i = 0; i < targets_of_each; ++i) targets += "<AITarget id='" + pick(ships) + "'/>";
        return fighters::makePilot(ways, targets);
    }

    const TempDir dir;
    const std::string game;
    std::optional<XMLParser> parser;
};

template <class Base>
class Fight : public Base {
public:
    Fight(const Fleet& f, int shots) : Base(f.getElement(), nullptr), fleet(f), num_shots(shots) {
        for (std::size_t i = 0; i < fleet.elements.size(); ++i) {
            _GameObject& ship = **find(i);
            ship.setPosition(fleet.places[i]);
            turn(ship);
        }
    }

    /// Brings the numbers of ships and shots back to what they were; takes no time.
    void restore() {
        for (std::size_t i = 0; i < fleet.elements.size(); ++i)
            if (!*find(i)) replace(i);
        std::size_t present = this->getObjects().size();
        for (; present < fleet.elements.size() + num_shots; ++present) shoot();
    }
    /// Both return how long they took.
    double sweep(unsigned int frame) {
        srand(frame);
        const double start = now();
        this->update(frame_time);
        return now() - start;
    }
    double pass() {
        const double start = now();
        this->detectCollisions();
        return now() - start;
    }
    /// Asks for all bounds, as drawing does in every frame: the size of a ship is that of its
    /// bounds when they were last asked for.
    void show() const {
        for (const auto& [id, slot] : this->getObjects())
            if (*slot) (*slot)->getBoundingObject();
    }
    /// A number that any other outcome would change.
    std::uint64_t sum() const {
        std::uint64_t total = 0;
        const auto add = [&](float value) {
            total = (total ^ std::bit_cast<std::uint32_t>(value)) * 0x100000001b3;
        };
        for (const auto& [id, slot] : this->getObjects()) {
            add(static_cast<float>(*slot ? id : 0));
            if (!*slot) continue;
            const Point4 place = (*slot)->getPosition();
            const Vector4 course = (*slot)->getOrientation();
            for (const float value : {place.x, place.y, place.z, course.x, course.y, course.z})
                add(value);
            if (auto* laser = dynamic_cast<Laser*>(*slot)) add(laser->getEnergy());
            if (auto* ship = dynamic_cast<Starship*>(*slot)) {
                add(ship->getVelocity());
                add(ship->getHull()->getIntegrity());
                add(ship->getShield()->getCurrentEnergy());
            }
        }
        return total;
    }

private:
    ObjectSlot find(std::size_t number) const {
        return this->getObjectById((static_cast<int>(number) + 1) | GO_STARSHIP);
    }
    Vector4 direction() {
        std::normal_distribution<float> any;
        return Vector4(any(random), any(random), any(random), 1).normalize();
    }
    void turn(_GameObject& ship) {
        ship.setOrientation(direction());
        static_cast<_MovingGameObject&>(ship).setHeading(ship.getOrientation());
    }
    void replace(std::size_t number) {
        auto ship = std::make_unique<Starship>(fleet.elements[number]);
        ship->setShield(PartStore::getInstance()->getShield("Simple Shield"));
        ship->setPosition(fleet.places[number]);
        turn(*ship);
        this->add(std::move(ship));
    }
    /// One more shot, on its way from some ship to another.
    void shoot() {
        while (*this->getObjectById(last_shot | GO_LASER)) last_shot = (last_shot + 1) & 0xfff;
        std::uniform_int_distribution<std::size_t> any(0, fleet.elements.size() - 1);
        const Point4 from = (*find(any(random)))->getPosition();
        Vector4 way(from, (*find(any(random)))->getPosition());
        if (way.getLength() == 0) way = direction();
        const float share = std::uniform_real_distribution<float>(0.1F, 0.9F)(random);
        const Vector4 course = Vector4(way).normalize();
        this->add(std::make_unique<Shot>(last_shot, from + way * share, course,
                                         Vector4(course ^ direction()).normalize()));
    }

    const Fleet& fleet;
    std::size_t num_shots;
    std::mt19937 random{2};
    int last_shot = 0;
};

/// The times of one galaxy.
struct Times {
    void fly(auto& fight, unsigned int frame) {
        fight.restore();
        sweeps.push_back(fight.sweep(frame));
        passes.push_back(fight.pass());
        frames.push_back(sweeps.back() + passes.back());
        fight.show();
    }
    std::vector<double> sweeps, passes, frames;
};

/// With so many ships and shots; with pilots, or without.
void fight(benchmark::State& state) {
    const Silence silence;
    sprites::registerExplosions();
    fighters::loadParts();
    const Fleet fleet(static_cast<int>(state.range(0)), state.range(2));
    const auto shots = static_cast<int>(state.range(1));
    Fight<Galaxy> galaxy(fleet, shots);
    Fight<PlainGalaxy> plain(fleet, shots);

    Times fast, slow;
    unsigned int frame = 0;
    for (; frame < warm_up; ++frame) {
        fast.fly(galaxy, frame);
        slow.fly(plain, frame);
    }
    fast = slow = {};
    for (auto _ : state) {
        fast.fly(galaxy, ++frame);
        slow.fly(plain, frame);
        state.SetIterationTime(fast.frames.back() / 1e6);
        if (galaxy.sum() != plain.sum()) {
            state.SkipWithError("the outcomes differ");
            break;
        }
    }
    state.counters["sweep"] = quartile(fast.sweeps);
    state.counters["pass"] = quartile(fast.passes);
    state.counters["frame"] = quartile(fast.frames);
    state.counters["plain sweep"] = quartile(slow.sweeps);
    state.counters["plain pass"] = quartile(slow.passes);
    state.counters["plain frame"] = quartile(slow.frames);
    state.counters["share"] = quartile(fast.frames) / quartile(slow.frames);
}
BENCHMARK(fight)
    ->ArgNames({"ships", "shots", "pilots"})
    ->Args({5, 45, 1})
    ->Args({20, 180, 1})
    ->Args({100, 900, 1})
    ->Args({200, 800, 1})
    ->Args({400, 3600, 1})
    ->Args({100, 900, 0})
    ->Args({200, 800, 0})
    ->Args({400, 3600, 0})
    ->Iterations(50)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

/// The galaxy alone, for a profiler.
void fightAlone(benchmark::State& state) {
    const Silence silence;
    sprites::registerExplosions();
    fighters::loadParts();
    const Fleet fleet(static_cast<int>(state.range(0)), true);
    Fight<Galaxy> galaxy(fleet, static_cast<int>(state.range(1)));
    Times times;
    unsigned int frame = 0;
    for (; frame < warm_up; ++frame) times.fly(galaxy, frame);
    for (auto _ : state) {
        times.fly(galaxy, ++frame);
        state.SetIterationTime(times.frames.back() / 1e6);
    }
}
BENCHMARK(fightAlone)->Args({200, 800})->Args({400, 3600})->Iterations(300)->UseManualTime();

}  // namespace
