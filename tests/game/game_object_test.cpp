#include "game/game_object.h"

#include "game/game_camera_interface.h"
#include "game/game_event.h"
#include "game/hitable.h"
#include "tests/support/probe.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

namespace {

TEST(GameObject, UpStaysPerpendicularToTheOrientation) {
    window();
    Probe probe(1);
    probe.setUp(Vector4(0, 3, 0, 1));
    probe.setOrientation(Vector4(1, 0, 0, 1));
    EXPECT_EQ(probe.getUp(), Vector4(0, 3, 0, 1)) << "as it was, length included";
    probe.setOrientation(Vector4(0, 0.6f, 0.8f, 1));
    EXPECT_LT((probe.getUp() - Vector4(0, 0.8f, -0.6f, 1)).getLength(), 1e-5);
    for (const Vector4& along : {Vector4(0, -2, 0, 1), Vector4(0.6f, 0, 0.8f, 1)}) {
        probe.setUp(along);
        probe.setOrientation(along);
        EXPECT_NEAR(probe.getUp() * along, 0, 1e-6);
        EXPECT_GT(probe.getUp().getLength(), 0.9f);
    }
}

TEST(GameObject, FliesAlongItsHeadingAndTakesItsBoundsAlong) {
    window();
    Probe probe(1);
    EXPECT_EQ(probe.getSize(), 1) << "missing bounds are built";
    probe.setHeading(Vector4(0, 10, 0, 1));
    probe.setHeading(Vector4(0, 0, 0, 1));  // no direction changes nothing
    probe.setVelocity(20);
    probe.update(250);
    EXPECT_EQ(probe.getPosition(), Point4(0, 5, 0, 1));
    const auto* bounds = &probe.getBoundingObject();
    probe.setPosition(Point4(9, 0, 0, 1));
    EXPECT_EQ(bounds, &probe.getBoundingObject()) << "built once per update";
    EXPECT_EQ(bounds->getCenter(), Point4(0, 5, 0, 1));
    EXPECT_EQ(probe.getBoundingSphere().getCenter(), Point4(9, 0, 0, 1));
}

TEST(GameObject, ViewOfADeadObjectGoesToThePlayer) {
    window();
    auto* cameras = CameraManagement::getInstance();
    auto player = std::make_unique<Probe>(1), other = std::make_unique<Probe>(2);
    cameras->setPlayerObject(player.get());
    cameras->changeCamera(CAM_PLANET, other->getCameras(), CPOS_BACK);
    const Probe copy(*other);
    other.reset();
    EXPECT_EQ(copy.getCamera(CPOS_BACK), nullptr) << "cameras are not copied";
    EXPECT_EQ(cameras->getCurrentCamera(), player->getCamera(CPOS_FRONT));
    player.reset();
    EXPECT_EQ(cameras->getCurrentCamera(), nullptr) << "nobody is left to look from";
}

struct Part : _Damageable {
    Part(float integrity, float resistance) {
        setIntegrity(integrity);
        setResistance(resistance);
    }
};

// The worn half of a part falls faster than the whole one: what is absorbed shrinks with integrity.
TEST(Damageable, WearsOffUntilItIsDestroyedOnce) {
    EXPECT_FLOAT_EQ(Part(100, 50).damage(10), 95);
    EXPECT_FLOAT_EQ(Part(100, 100).damage(10), 100);
    EXPECT_FLOAT_EQ(Part(50, 50).damage(10), 42.5);
    Part part(20, 0);
    EXPECT_THROW(part.damage(20), DestroyEvent);
    EXPECT_EQ(part.damage(20), -20);
    part.repair(121);
    EXPECT_EQ(part.getIntegrity(), 100);
}

}  // namespace
