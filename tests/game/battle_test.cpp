// What a galaxy full of ships does to the heap in the course of time.

#include "game/game_event.h"
#include "game/laser.h"
#include "tests/support/allocations.h"
#include "tests/support/pilots.h"
#include "tests/support/silence.h"
#include "tests/support/tiny_game.h"

#include <algorithm>
#include <list>

namespace {

struct Arena : Pilots::Space {
    using Space::Space;

    void pass(int milliseconds) {
        update(milliseconds);
        detectCollisions();
    }
};

struct BattleTest : testing::Test {
    static constexpr int num_ships = 40;

    /// A big ship on patrol near the origin that attacks all others.
    XMLElement fighter(int id) {
        std::string targets;
        for (int other = 1; other <= num_ships; ++other)
            if (other != id) targets += "<AITarget id='" + std::to_string(other) + "'/>";
        const std::string place = std::to_string(id % 7 * 600) + "|" +
                                  std::to_string(id % 5 * 600) + "|" + std::to_string(id * 100);
        return yard.element(
            "<Starship name='' hull='frigate' engine='engine' reactor='reactor' tank='depot' "
            "radar='radar' orientation='V(0|0|1)' up='V(0|1|0)' pos='P(" +
            place + ")' id='" + std::to_string(id) +
            "'><AIControl><IdleModule tolerance='50'><Way speed='80' point='P(1000|0|0)'/>"
            "<Way speed='60' point='P(500|1300|400)'/></IdleModule><TacticalModule/>"
            "<DefenseModule/><AttackModule/>" +
            targets +
            "</AIControl><WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>"
            "<WingConfig type='wing'><TorpedoLauncherConfig type='launcher'/></WingConfig>"
            "</Starship>");
    }

    Silence silence;
    ShipYard yard;
    const TempDir dir;
    const int parts = yard.load(
        "<Hull name='frigate' mass='1' size='1' resistance='80' rep3d='" +
        dir.write("frigate.ASE", boxModel(30)) + "' explosion_name='starship_explosion'>" +
        yard.cockpit() +
        "<Slot type='Wing' trans_offset='P(-32|0|0)'/><Slot type='Wing' "
        "trans_offset='P(32|0|0)'/></Hull>"
        "<Tank name='depot' mass='1' size='1' fuel='100000000'/><Radar name='radar' mass='1' "
        "power='1' size='1' range='1500' cloak_cat='0'/>");
    Arena arena{yard.element(yard.galaxyElement()), nullptr};
};

}  // namespace

// For every ship that is lost another one comes.
TEST_F(BattleTest, AnHourOfFortyShipsLeavesNothingBehind) {
    constexpr int frame_time = 50, frames = 3600 * 1000 / frame_time;
    std::vector<XMLElement> fighters;
    for (int id = 1; id <= num_ships; ++id) fighters.push_back(fighter(id));
    long most_at_first = 0, most_at_last = 0;
    int losses = -num_ships;
    for (int frame = 0; frame < frames; ++frame) {
        for (int id = 1; id <= num_ships; ++id)
            if (!*arena.getObjectById(id | GO_STARSHIP)) {
                arena.add(std::make_unique<Starship>(fighters[id - 1]));
                ++losses;
            }
        arena.pass(frame_time);
        if (frame < frames / 4) most_at_first = std::max(most_at_first, allocations::live());
        if (frame > frames / 4 * 3) most_at_last = std::max(most_at_last, allocations::live());
    }
    EXPECT_GT(losses, num_ships) << "there was a battle";
    EXPECT_GT(arena.getNumLasers(), 4096u);
    EXPECT_GT(arena.getNumTorpedos(), 0u);
    EXPECT_LT(static_cast<double>(most_at_last), 1.1 * static_cast<double>(most_at_first));
}

// In a frame in which nobody fires and nobody dies, nobody takes memory either: also where shots
// fly among the ships.
TEST_F(BattleTest, FlyingTakesNoMemory) {
    for (int id = 1; id <= num_ships; ++id) arena.add(std::make_unique<Starship>(fighter(id)));
    constexpr std::size_t num_lasers = 300;
    auto gun = std::make_unique<Probe>(1, 0, 0, GO_SUN);
    gun->deed = [] {
        std::list<Laser*> lasers;
        for (std::size_t i = 0; i < num_lasers; ++i)
            lasers.push_back(new Laser(nullptr, 9, Point4(300, static_cast<float>(i) * 15, 0, 1),
                                       Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1), 350));
        throw LaserFiredEvent(lasers);
    };
    std::function<void()>& deed = gun->deed;
    arena.add(std::move(gun));
    arena.pass(0);
    deed = nullptr;
    constexpr int frame_time = 10;
    for (int frame = 0; frame < 10; ++frame) arena.pass(frame_time);
    const long count = allocations::count();
    for (int frame = 0; frame < 90; ++frame) arena.pass(frame_time);
    EXPECT_EQ(allocations::count(), count);
    EXPECT_EQ(arena.getObjects().size(), num_ships + num_lasers + 1) << "all fly on";
}
