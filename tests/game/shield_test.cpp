#include "game/shield.h"

#include "game/reactor.h"
#include "tests/support/ship_yard.h"
#include "tests/support/view.h"

#include <gtest/gtest.h>

namespace {

// It leaks 10 a second, which costs 20 of charge, and may draw 22: so little by little it fills up.
// A full one takes what it leaks, and without charge it drains. The weaker it is the fainter it
// glows, near side and far side; at a tenth there is no glow any more.
TEST(Shield, LivesOnTheBattery) {
    ShipYard yard;
    const auto ship = yard.ship();
    Shield& shield = *new Shield(
        yard.element("<Shield name='' mass='1' size='1' power='1000' efficiency='500' loss='10' "
                     "strength='101'/>"));
    ship->setShield(&shield);
    const std::array<int, 4> steps[] = {{0, 50, 100, 101},   {1000, 51, 78, 103},
                                        {3000, 54, 12, 108}, {1000, 50, 0, 101},
                                        {3900, 11, 0, 27},   {100, 10, 0, 0}};
    for (const auto& [time, energy, charge, red] : steps) {
        shield.update(time);
        EXPECT_FLOAT_EQ(shield.getCurrentEnergy(), energy);
        EXPECT_NEAR(ship->getReactor()->getBatCharge(), charge, 1e-3);
        EXPECT_NEAR(seenFrom(Point4(0, 0, 9, 1), Vector4(0, 1, 0, 1), Point4(), shield)[0], red, 2);
    }
    ship->getReactor()->update(100000);
    shield.setUsedPower(900);
    for (const float charge : {798.f, 778.f}) {
        shield.update(1000);
        EXPECT_EQ(shield.getCurrentEnergy(), 101);
        EXPECT_FLOAT_EQ(ship->getReactor()->getBatCharge(), charge);
    }
}

}  // namespace
