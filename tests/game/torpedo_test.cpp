#include "game/torpedo.h"

#include "3d/util3d.h"
#include "game/game_event.h"
#include "game/reactor.h"
#include "game/torpedo_launcher.h"
#include "tests/support/pilots.h"
#include "tests/support/view.h"

namespace {

/// A torpedo in flight at the origin, along +z, for three seconds.
struct Loose : Torpedo {
    Loose() : Torpedo(*std::unique_ptr<Torpedo>(PartStore::getInstance()->getTorpedo("torpedo"))) {}
    using Torpedo::setTarget;
};

// The launcher sits 4 units ahead on a wing 4 units to the right of a ship that lies on its side.
// A launch without charge costs the torpedo, one without a torpedo costs no charge.
TEST(TorpedoLauncher, LaunchesAheadWithStockAndCharge) {
    ShipYard yard;
    const auto ship =
        yard.ship("<WingConfig type='wing'><TorpedoLauncherConfig type='launcher'/></WingConfig>");
    ship->setOrientation(direction(1, 0, 0));
    ship->setUp(direction(0, 0, 1));
    TorpedoLauncher& launcher = *ship->getTorpedoLauncher();
    for (const auto& [launched, load, charge] :
         {std::tuple(true, 2, 60), {true, 1, 20}, {false, 0, 20}, {false, 0, 20}}) {
        const std::unique_ptr<Torpedo> torpedo(launcher.fire());
        EXPECT_EQ(launcher.getLoad(), load);
        EXPECT_EQ(ship->getReactor()->getBatCharge(), charge);
        ASSERT_EQ(torpedo != nullptr, launched);
        if (!launched) continue;
        EXPECT_THAT(torpedo->getPosition(), IsNear(place(4 + 40, -4, 0)));
        EXPECT_NEAR(torpedo->getUp() * direction(0, 0, 1), 1, 1e-5);
        torpedo->update(1000);
        EXPECT_THAT(torpedo->getPosition(), IsNear(place(44 + 100, -4, 0)));
    }
}

// After a second of straight flight it turns by 90 degrees per second, and never past its target.
TEST(Torpedo, TurnsTowardsItsTarget) {
    ShipYard yard;
    const std::array<float, 4> cases[] = {
        {0, 100, 100, 9}, {-8.7489f, 0, 100, 5}, {0, 0, 100, 0}, {0, 0, -100, 9}, {0, 0, 0, 0}};
    for (const auto& [x, y, z, degrees] : cases) {
        const Point4 target = place(x, y, z);
        Probe prey(1);
        prey.setPosition(target);
        Loose torpedo;
        torpedo.setVelocity(0);
        torpedo.setTarget(std::make_shared<_GameObject*>(&prey));
        for (const int time : {999, 1, 100}) {
            const Vector4 before = torpedo.getOrientation(), to_target(Point4(), target);
            torpedo.update(time);
            const float turned =
                util3d::rad2deg(util3d::angle(torpedo.getOrientation(), before).total);
            EXPECT_NEAR(turned, time == 999 ? 0 : std::min(degrees, 0.09f * time), 0.1) << target;
            EXPECT_GE(torpedo.getHeading() * to_target, before * to_target - 1e-4) << target;
        }
    }
}

// Whatever sets it off, it moves once more, stands still while it bursts, and is gone after 4040
// milliseconds. First a blue line, then nothing, once a hit has worn it, then a wide explosion.
TEST(Torpedo, BurstsAtItsEnd) {
    const ShipYard yard;
    for (const int end : {0, 1, 2}) {
        Loose torpedo;
        const auto blue = [&](float ahead, float above) {
            const Point4 at = torpedo.getPosition(), target = place(0, above, at.z + ahead);
            return seenFrom(place(50, 0, at.z), direction(0, 1, 0), target, torpedo)[2] == 255;
        };
        EXPECT_TRUE(blue(9, 0) && !blue(9, 5));
        if (end == 0) torpedo.getEnergy() = 0;
        if (end == 1) torpedo.destroy();
        if (end == 2) torpedo.update(2900);
        EXPECT_EQ(blue(0, 0), end != 0);
        const float start = torpedo.getPosition().z;
        for (const int time : {100, 1000, 3039}) torpedo.update(time);
        EXPECT_FLOAT_EQ(torpedo.getPosition().z, start + 10);
        EXPECT_TRUE(blue(9, 9) && !blue(0, 11));
        torpedo.update(1);
        EXPECT_THROW(torpedo.update(1), TorpedoFadedEvent);
    }
}

}  // namespace
