#include "game/game_object.h"

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
}

}  // namespace
