#include "game/part_store.h"
#include "game/wing.h"
#include "tests/support/ship_yard.h"
#include "tests/support/silence.h"

#include <benchmark/benchmark.h>

namespace {

/// A ship with two wings and two cannons: from its element to ready for flight, and its end.
void buildShip(benchmark::State& state) {
    const Silence silence;
    ShipYard yard;
    const XMLElement node = yard.element(ShipYard::shipElement(
        "<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>"
        "<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>"));
    while (state.KeepRunning()) benchmark::DoNotOptimize(std::make_unique<Starship>(node));
}
BENCHMARK(buildShip)->Unit(benchmark::kMicrosecond);

/// One part of it alone: the look-up and the copy, which shares the prototype's model.
void copyPart(benchmark::State& state) {
    const Silence silence;
    ShipYard yard;
    const PartStore& store = *PartStore::getInstance();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(std::unique_ptr<Wing>(store.getWing("wing")));
}
BENCHMARK(copyPart);

}  // namespace
