#include "3d/font_factory.h"
#include "3d/point.h"
#include "bench/fighters.h"
#include "game/camera_management.h"
#include "game/galaxy.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "main/log_factory.h"
#include "tests/support/capture.h"
#include "tests/support/window.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <benchmark/benchmark.h>

#include <iostream>

// What one frame of a flight costs, with the shipped ships and the shipped galaxy.

namespace {

constexpr int frame_time = 16;  // milliseconds
constexpr int first_id = 1000;  // above the ids of the shipped objects

/// A copy of the player's ship at a place of its own.
class FleetShip : public Starship {
public:
    FleetShip(const XMLElement& node, int number, const Point4& place) : Starship(node) {
        setId((first_id + number) | GO_STARSHIP);
        setPosition(place);
    }
};

class FleetGalaxy : public Galaxy {
public:
    using Galaxy::add;
    using Galaxy::Galaxy;
    using Galaxy::show;
    using Galaxy::update;
};

/// The shipped galaxy with more ships, in ranks ahead of the player's.
class Fleet {
public:
    explicit Fleet(int ships) {
        window();
        const Capture silence(std::cout);
        const XMLElement root = parser.getRootElement();
        FontFactory::getInstance()->load(fighters::findChild(root, "Fonts"));
        PartStore::getInstance()->load(fighters::findChild(root, "PartSection"));
        const XMLElement ship = fighters::findChild(root, "Starship");
        const XMLElement universe =
            fighters::findChild(fighters::findChild(root, "WorldSection"), "Universe");
        galaxy = std::make_unique<FleetGalaxy>(fighters::findChild(universe, "Galaxy"), nullptr);
        for (int i = 0; i < ships; ++i) galaxy->add(makeShip(ship, i));
        player = std::make_unique<Starship>(ship);
        player->setPosition(Point4(0, 0, -100, 1));
        CameraManagement::getInstance()->setPlayerObject(player.get());
        CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);
    }
    ~Fleet() {
        const Capture silence(std::cout);
        player.reset();
        galaxy.reset();
    }
    Fleet(const Fleet&) = delete;
    Fleet& operator=(const Fleet&) = delete;

    FleetGalaxy& operator*() const { return *galaxy; }

private:
    static std::unique_ptr<FleetShip> makeShip(const XMLElement& node, int number) {
        constexpr int row = 10;
        constexpr float distance = 40;
        const auto column = static_cast<float>(number % row) - (row - 1) / 2.0F;
        const auto line = static_cast<float>(number / row % row) - (row - 1) / 2.0F;
        const auto depth = static_cast<float>(number / (row * row) + 10);
        const Point4 place(column * distance, line * distance, depth * distance, 1);
        return std::make_unique<FleetShip>(node, number, place);
    }

    XMLParser parser{"../data/game.xml"};
    std::unique_ptr<FleetGalaxy> galaxy;
    std::unique_ptr<Starship> player;
};

void updateSweep(benchmark::State& state) {
    const Fleet fleet(static_cast<int>(state.range(0)));
    for (auto _ : state) (*fleet).update(frame_time);
}
BENCHMARK(updateSweep)->Arg(1000)->Unit(benchmark::kMicrosecond);

/// One frame with the scene and so many more ships in view.
void flightFrame(benchmark::State& state) {
    const Fleet fleet(static_cast<int>(state.range(0)));
    for (auto _ : state) (*fleet).show();
}
BENCHMARK(flightFrame)->Arg(0)->Arg(100)->Unit(benchmark::kMillisecond);

void objectByLine(benchmark::State& state) {
    const Fleet fleet(static_cast<int>(state.range(0)));
    const Point4 start(0, 0, 0, 1);
    const Point4 end(0, 0, 500, 1);
    for (auto _ : state) benchmark::DoNotOptimize((*fleet).getObjectByLine(nullptr, start, end));
}
BENCHMARK(objectByLine)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
