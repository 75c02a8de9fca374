#include "game/game_event.h"
#include "game/torpedo_launcher.h"
#include "tests/support/pilots.h"

namespace {

/// Ship 1 at the origin, and somewhere ahead of it ship 7, the enemy.
struct AIModulesTest : Pilots {
    Pilot hunter(const std::string& more = "") { return pilot("<AITarget id='7'/>" + more); }
    /// Lets a frame pass; true when lasers are fired.
    static bool fires(Pilot& p, int time) {
        try {
            p.update(time);
        } catch (const LaserFiredEvent&) {
            return true;
        }
        return false;
    }
    Starship& enemy = put(7, place(0, 0, 5000));
    const float size = enemy.getSize();
};

TEST_F(AIModulesTest, PatrolGoesRoundAndBeginsAnewAfterAChase) {
    Pilot p = hunter(
        "<IdleModule tolerance='5'><A speed='10' point='P(0|0|4.9)'/>"
        "<B speed='20' point='P(5|0|0)'/><C speed='30' point='P(9|0|0)'/></IdleModule>");
    constexpr auto idle = AI_STATE_IDLE, busy = AI_STATE_TACTICAL;
    const std::tuple<float, float, float, AISTATEenum> frames[] = {
        {0, 5000, 20, idle}, {0, 5000, 20, idle},  {.1F, 5000, 30, idle}, {.1F, 1000, 30, idle},
        {0, 999, 30, busy},  {0, 1000, 100, busy}, {-9, 1001, 10, idle},  {-9, 999, 10, busy}};
    for (auto [x, z, speed, state] : frames) {
        ship.setPosition(place(x, 0, 0));
        enemy.setPosition(place(x, 0, z));
        p.update(1);
        EXPECT_EQ(p.nav_speed, speed) << x << ' ' << z;
        EXPECT_EQ(p.current_state, state) << x << ' ' << z;
    }
    EXPECT_THAT(silence.text(), testing::HasSubstr("speed: 20\t destination: (5, 0, 0, 1)\n"));
    put(7, place(0, 0, 100));
    p.update(0);
    EXPECT_EQ(p.current_state, idle) << "that is another ship 7";
}

TEST_F(AIModulesTest, TheNearestShipIsTheTarget) {
    for (auto [id, y] : {std::pair{8, 500}, {9, -500}}) put(id, place(0, y, 0));
    space.add(std::make_unique<Probe>(0x500a));
    std::string list;  // the pilot itself, nobody, no ship; then the ships
    for (auto id : {"1", "2", "10", "9", "8"}) list += std::string("<AITarget id='") + id + "'/>";
    Pilot p = hunter(list);
    for (int i = 0; i < 2; ++i) p.update(0);
    EXPECT_THAT(p.targets, testing::ElementsAre(0x5007, 0x5009, 0x5008));
    EXPECT_THAT(p.nav_point, IsNear(place(0, -500, 0)));
}

// Distances are counted from the target's size on; it flies along x.
TEST_F(AIModulesTest, TheDistanceDecidesAboutSpeedAndPoint) {
    enum Where { AWAY, BEHIND, AHEAD, AT };
    // The distance, the target's speed, the wished speed before and after, the point to go to.
    const std::tuple<float, float, float, float, Where> bands[] = {
        {20, 10, 40, 100, AWAY}, {20.5F, 10, 40, 140, BEHIND},    {40, 10, 4e5F, 1e6F, BEHIND},
        {41, 10, 40, 0, AHEAD},  {59, 10, 40, 0, AHEAD},          {155, 10, 40, 10, AHEAD},
        {155, 0, 40, 0, AT},     {300 - size, 40, 40, 50, AHEAD}, {300, 30, 0, 30, AHEAD},
        {300, 0, .5F, 10, AT},   {300, -90, 40, 0, AHEAD},        {501, 10, 40, 100, BEHIND}};
    for (auto [distance, target_speed, before, after, where] : bands) {
        Pilot p = hunter();
        const float d = size + distance, lead = size + target_speed * d / 1000;
        const Point4 points[] = {place(0, 0, -d), place(-size / 2, 0, d), place(lead, 0, d),
                                 place(0, 0, d)};
        enemy.setPosition(place(0, 0, d));
        enemy.setHeading(direction(1, 0, 0));
        enemy.setVelocity(target_speed);
        fires(p, 0);
        p.nav_speed = before;
        ship.setVelocity(25);
        ship.setTank(PartStore::getInstance()->getTank("tank"));
        fires(p, 5000);
        EXPECT_NEAR(p.nav_speed, after, 1e-3) << distance;
        EXPECT_LT(Vector4(p.nav_point, points[where]).getLength(), 1e-3) << distance;
    }
}

TEST_F(AIModulesTest, ATargetAheadInReachIsLocked) {
    const std::tuple<float, float, bool, bool> cases[] = {
        {300, 0, false, false}, {279, 0, true, false}, {280, 0, true, true},
        {300, 0, true, true},   {401, 0, true, false}, {300, 1, true, false}};
    for (auto [distance, side, armed, locks] : cases) {
        Pilot p = hunter();
        p.select({});
        if (armed)
            ship.setTorpedoLauncher(PartStore::getInstance()->getTorpedoLauncher("launcher"));
        enemy.setPosition(place(0, 0, distance));
        ship.setOrientation(direction(side, 0, 1));
        for (int i = 0; i < 100; ++i) fires(p, 0);
        EXPECT_EQ(ship.getSelectedObject() != nullptr, locks) << distance;
    }
}

}  // namespace
