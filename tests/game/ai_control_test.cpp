#include "game/ai_control.h"

#include "game/ai_circle_control.h"
#include "tests/support/pilots.h"
#include "tests/support/silence.h"

#include <bit>
#include <random>

namespace {

using AIControlTest = Pilots;

TEST_F(AIControlTest, CircleTurnsTowardsItsCentreAndLosesSpeedToTheEngine) {
    EXPECT_EQ(failureOf([&] { AICircleControl(&ship, Point4(), 50); }),
              "AICircleControl: attribute center: the ship is at its own centre");
    ship.setPosition(place(100, 0, 0));
    AICircleControl round(&ship, Point4(), 50);
    round.update(500);  // a quarter of a radian
    EXPECT_NEAR(ship.getHeading().x, -std::sin(14 / 57.29578), 1e-5);
    EXPECT_EQ(ship.getVelocity(), 25);
}

TEST_F(AIControlTest, NeedsItsModulesAndNothingElse) {
    const std::pair<std::string, std::string> faults[] = {
        {control("<Wing/>"), "AIControl::AIControl: wrong xml node type (Wing)"},
        {"<AIControl/>", "AIControl::AIControl: invalid AI configuration (missing nodes)"},
        {control("<IdleModule tolerance='1'/>"), "IdleModule::IdleModule: no NavEntries found"}};
    for (const auto& [element, failure] : faults)
        EXPECT_EQ(failureOf([&, &element = element] { Pilot(&ship, yard.element(element)); }),
                  failure);
}

TEST_F(AIControlTest, TurnsBy40DegreesASecondAndMovesTheThrottleByAPercentIn20Milliseconds) {
    const float c = 0.766044F, s = 0.642788F;  // of 40 degrees
    const std::tuple<Point4, int, Vector4> turns[] = {{place(0, 0, -9), 1000, direction(c, 0, -s)},
                                                      {place(9, 0, 9), 1500, direction(1, 0, 1)},
                                                      {place(-9, 0, 0), 1000, direction(c, 0, s)},
                                                      {Point4(), 1000, direction(c, 0, s)}};
    for (auto [to, time, course] : turns) {
        Pilot p = pilot("<IdleModule tolerance='0'><W speed='1' point='P(0|0|1)'/></IdleModule>");
        ship.setOrientation(direction(1, 0, 0));
        p.nav_point = to;
        p.update(time);
        EXPECT_THAT(ship.getOrientation(), IsNear(course.normalize())) << to;
    }
    const std::tuple<int, float, int, int> throttles[] = {
        {0, 50, 19, 0},    {0, 50.9F, 100, 5},    {0, 50.9F, 5000, 50},  {48, 50, 60, 50},
        {100, 0, 410, 80}, {0, 1e38F, 5000, 100}, {100, -1e38F, 5000, 0}};
    for (auto [from, speed, time, to] : throttles) {
        Pilot p = pilot();
        p.throttle = from;
        p.nav_speed = speed;
        p.update(time);
        EXPECT_EQ(p.getThrottle(), to) << from << ' ' << speed << ' ' << time;
    }
}

// The feelers start at the corners of a square, counter-clockwise from that of the lowest x and y,
// and meet 50 units beyond it. Rocks of radius 1 lie on some of them.
TEST_F(AIControlTest, GoesAroundObstaclesOnTheFreeSide) {
    const float size = ship.getSize(), edge = size * 1.1F;
    const Vector4 corners[] = {direction(-edge, -edge, 0), direction(edge, -edge, 0),
                               direction(edge, edge, 0), direction(-edge, edge, 0)};
    // The rays that are blocked, and the free edge in shares of the square.
    const std::tuple<unsigned, float, float> meetings[] = {
        {1, 1, 1}, {8, 1, -1}, {6, -1, 0}, {9, 1, 0}, {5, -1, 1}, {11, 1, 1}, {15, 1, 1}};
    for (auto [rays, x, y] : meetings) {
        Pilot p = pilot();
        Probe* rocks[4];
        for (int i = 0; i < 4; ++i) {
            const float z = rays == 15 && i == 2 ? 20 : 10;  // the farther one is less of a danger
            space.add(std::unique_ptr<Probe>(rocks[i] = new Probe(0x2000 + i, 9999)));
            if (rays & 1 << i)
                rocks[i]->setPosition(place(0, 0, z) + corners[i] * (1 - z / (edge + 50)));
        }
        p.update(1);
        ASSERT_TRUE(p.tmp_point_valid);
        const Vector4 rock = rocks[std::countr_zero(rays)]->getPosition();
        const Vector4 aside = direction(x * edge - rock.x, y * edge - rock.y, 0).normalize();
        EXPECT_LT(Vector4(p.tmp_point, rock + aside * (2 * size + 1)).getLength(), 1e-3) << rays;
    }
}

TEST_F(AIControlTest, FollowsAWayPastUntilItArrivesOrStandsStill) {
    for (auto [x, stays] : {std::pair{20.F, false}, {20.01F, true}}) {
        Pilot p = pilot();
        p.tmp_point = place(x, 0, 0);
        p.tmp_point_valid = true;
        p.update(100);
        EXPECT_EQ(p.tmp_point_valid, stays);
        p.update(100);
        EXPECT_FALSE(p.tmp_point_valid) << "it has come no nearer";
    }
}

// A million frames of pilots in each other's way: on top of each other, without speed, with targets
// that vanish and come back, in time that creeps or leaps.
TEST_F(AIControlTest, NeverWritesWhatIsNotANumber) {
    yard.load(
        "<Engine name='engine' power='1' efficiency='1000000000' v_max='100' a_max='50' file=''" +
        yard.body() + "/>");
    std::string crew = "<IdleModule tolerance='1'><Way speed='0' point='P(0|0|0)'/></IdleModule>";
    for (char id = '0'; id <= '9'; ++id) crew += std::string("<AITarget id='") + id + "'/>";
    std::array<Starship*, 6> fleet{};
    std::mt19937 random(1);
    const auto draw = [&](auto... of) { return std::array{of...}[random() % sizeof...(of)]; };
    const auto drawVector = [&] { return direction(draw(0, 1, -1), draw(0, 1), draw(0, 1)); };
    const Silence silence;
    for (std::size_t frame = 0; frame < 1000000; frame += fleet.size()) {
        const std::size_t number = random() % fleet.size();
        Starship*& one = fleet[number];
        if (!one || random() % 2000 == 0)
            one = &put(static_cast<int>(number) + 2, Point4(), control(crew));
        const Starship* other = draw(&ship, fleet[random() % fleet.size()]);
        if (other && random() % 50 == 0) one->setPosition(other->getPosition());
        if (random() % 50 == 0) one->setOrientation(drawVector());
        if (random() % 50 == 0) one->setUp(drawVector());
        if (random() % 50 == 0) one->setVelocity(draw(0.F, 1e-30F, -50.F));
        space.update(draw(0, 1, 1, 16, 20, 100, 5000));
        for (const auto& [id, slot] : space.getObjects()) {
            const auto& each = dynamic_cast<Starship&>(**slot);
            const Vector4 sum = each.getPosition() + each.getOrientation() + each.getUp() +
                                each.getHeading() * each.getVelocity();
            ASSERT_TRUE(std::isfinite(sum.x + sum.y + sum.z)) << frame;
        }
    }
}

}  // namespace
