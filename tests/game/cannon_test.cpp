// The whole economy of a ship: fuel to charge and thrust, charge to shots.
#include "game/cannon.h"

#include "game/engine.h"
#include "game/game_event.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/reactor.h"
#include "game/tank.h"
#include "tests/support/geometry.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

TEST(Reactor, BurnsNoMoreThanItMayAndFindsAndCanStore) {
    ShipYard yard;
    const std::string reactor = "<Reactor name='reactor' mass='1' size='1' consumption='50' ";
    EXPECT_THROW(yard.load(reactor + "efficiency='0' bat_size='1000'/>"), Exception);
    yard.load(reactor + "efficiency='500' bat_size='200'/>");
    const auto ship = yard.ship();  // a tenth in the battery, 1000 in the tank
    Reactor& battery = *ship->getReactor();
    for (auto [time, charge, fuel] :
         {std::tuple{1000, 45.f, 950.f}, {60000, 200, 640}, {1000, 200, 640}}) {
        battery.update(time);
        EXPECT_FLOAT_EQ(battery.getBatCharge(), charge);
        EXPECT_FLOAT_EQ(ship->getTank()->getFuel(), fuel);
    }
    battery.drawPower(175);
    EXPECT_FLOAT_EQ(battery.drawPower(30, 30), 0);
    EXPECT_FLOAT_EQ(battery.drawPower(5, 25), 5) << "just enough";
    EXPECT_FLOAT_EQ(battery.drawPower(30), 20);
    ship->getTank()->drawFuel(637);
    battery.update(1000);
    EXPECT_FLOAT_EQ(battery.getBatCharge(), 1.5f) << "half of the last 3";
    EXPECT_THROW(battery.update(0), TankEmptyEvent);
}

TEST(Engine, MovesTheSpeedToTheThrottlesShareAndBurnsByThrottle) {
    ShipYard yard;
    const auto ship = yard.ship();
    Engine& engine = *ship->getEngine();  // at most 100 units per second, 50 more in each second
    float speed = engine.getVelocity(0, 50, 100);
    EXPECT_FLOAT_EQ(speed, 5);
    for (int i = 0; i < 10; ++i) speed = engine.getVelocity(speed, 50, 98);
    EXPECT_EQ(speed, 50) << "exactly";
    for (int i = 0; i < 10; ++i) speed = engine.getVelocity(speed, 0, 101);
    EXPECT_EQ(speed, 0) << "exactly";
    EXPECT_FLOAT_EQ(ship->getTank()->getFuel(), 946) << "none for a closed throttle";
    EXPECT_FLOAT_EQ(engine.getVelocity(0, 100, 20000), 100) << "the last drop gives full thrust";
    EXPECT_THROW(engine.getVelocity(100, 0, 100), TankEmptyEvent);
}

// The cannon sits 4 units ahead on a wing 4 units to the right.
TEST(Cannon, AShotLeavesTheMuzzleAheadAndTakesAllItsPowerOrNothing) {
    ShipYard yard;
    const auto ship =
        yard.ship("<WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>");
    auto* cannon = dynamic_cast<Cannon*>(ship->getHull()->getSlot(0).item->getSlot(0).item);
    ship->setPosition(place(100, 0, 0));
    ship->setOrientation(direction(1, 0, 0));
    ship->getReactor()->drawPower(85);
    const std::unique_ptr<Laser> shot(cannon->fire()), dud(cannon->fire());
    EXPECT_FLOAT_EQ(ship->getReactor()->getBatCharge(), 5);
    EXPECT_THROW(dud->update(0), LaserFadedEvent);
    EXPECT_FLOAT_EQ(shot->getEnergy(), 5) << "10 units at 500 for 1000";
    EXPECT_THAT(shot->getPosition(), IsNear(place(100 + 4 + 25, 0, 4)));
    for (int i = 0; i < 19; ++i) EXPECT_NO_THROW(shot->update(100));
    EXPECT_THROW(shot->update(100), LaserFadedEvent) << "after two seconds";
    EXPECT_THAT(shot->getPosition(), IsNear(place(100 + 4 + 25 + 700, 0, 4)));
}

}  // namespace
