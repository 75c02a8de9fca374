#include "game/ai_circle_control.h"

#include "tests/support/pilots.h"

namespace {

TEST_F(Pilots, CircleTurnsTowardsItsCentreAndLosesSpeedToTheEngine) {
    EXPECT_EQ(failureOf([&] { AICircleControl(&ship, Point4(), 50); }),
              "AICircleControl: attribute center: the ship is at its own centre");
    ship.setPosition(place(100, 0, 0));
    AICircleControl round(&ship, Point4(), 50);
    round.update(500);  // a quarter of a radian
    EXPECT_NEAR(ship.getHeading().x, -std::sin(14 / 57.29578), 1e-5);
    EXPECT_EQ(ship.getVelocity(), 25);
}

}  // namespace
