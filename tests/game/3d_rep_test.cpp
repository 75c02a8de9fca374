#include "game/3d_rep.h"

#include "game/cannon.h"
#include "game/engine.h"
#include "game/hull.h"
#include "game/simple_game_camera.h"
#include "game/wing.h"
#include "tests/support/failure.h"
#include "tests/support/ship_yard.h"
#include "tests/support/stage.h"

#include <gtest/gtest.h>

namespace {

/// Parts of the yard's catalogue, not mounted yet.
struct Parts {
    ShipYard yard;
    const PartStore& store = *PartStore::getInstance();
    std::unique_ptr<Hull> hull{store.getHull("hull")};
    std::unique_ptr<Wing> wing{store.getWing("wing")}, tip{store.getWing("wing")};
    std::unique_ptr<Cannon> cannon{store.getCannon("cannon")};
    std::unique_ptr<Engine> engine{store.getEngine("engine")};
};

// Wings and weapons share their slots, engines have their own; the lowest free slot is filled. A
// mounted part knows its place: in its parent's model space, on the ship, and in the world.
TEST(Slots, TakeWhatFitsAndPlaceIt) {
    Parts p;
    for (_3D_Rep* part : std::initializer_list<_3D_Rep*>{p.cannon.get(), p.wing.get()})
        p.hull->addItem(part);
    p.wing->addItem(p.tip.get());  // a wing in a weapon's slot
    EXPECT_EQ(failureOf([&] { p.tip->addItem(p.engine.get()); }), "_3D_Rep: invalid slot");
    EXPECT_EQ(p.cannon->getParentSlotNumber(), 0);
    EXPECT_EQ(p.wing->getParentSlotNumber(), 2);
    EXPECT_EQ(p.wing->getBoundingObject()->getCenter(), Point4(4, 1, 0, 1));
    EXPECT_EQ(p.tip->getMatrix().getTranslation(), Vector4(4, 1, 4, 1));
    EXPECT_EQ(p.tip->getPosition(), Point4(4, 1, 4, 1));
    p.hull->transformBoundingObject(Point4(), Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1));
    EXPECT_EQ(p.hull->getTotalBoundingBox().getCenter(), Point4(0, 0.5f, 2, 1));
    EXPECT_FLOAT_EQ(p.hull->getTotalBoundingBox().getVX(), 5);
}

// A part that has exploded is gone; what hangs on it is still there until it explodes as well. The
// explosions themselves are not drawn where no camera watches. They may spread with every update:
// early to what is mounted, from their middle on to the parent. The pictures take 3232 to 4848
// milliseconds.
TEST(Parts, AreDrawnAtTheirSlotsUntilTheyExplode) {
    const Stage stage;
    for (const bool from_hull : {true, false}) {
        Parts p;
        _3D_Rep& hull = *p.hull;
        hull.addItem(2, p.wing.get());
        const auto drawn = [&](int time) {
            const std::array black{0, 0, 0};
            hull.update(time);
            for (int i = 0; i < 300; ++i) hull.update(0);
            stage.clear();
            hull.draw(DRAW_FLAT);
            return std::pair(stage.at(0, 0) != black, stage.at(4, 1) != black);
        };
        EXPECT_EQ(drawn(0), std::pair(true, true));
        (from_hull ? hull : *p.wing).explode();
        EXPECT_EQ(drawn(960), std::pair(!from_hull, from_hull));
        EXPECT_EQ(drawn(640), std::pair(!from_hull, false));
        EXPECT_EQ(drawn(850), std::pair(false, false));
    }
    Parts p;
    std::string dud = "<Wing name='dud'" + p.yard.body() + "/>";
    p.yard.load(dud.replace(dud.find("starship_"), 9, "no_"));
    EXPECT_EQ(failureOf([&] { std::unique_ptr<Wing>(p.store.getWing("dud"))->explode(); }),
              "GFX_Factory::getAnimation: no such AnimatedSprite (no_explosion)");
}

// The picture of an explosion faces the camera from every side, wherever the ship has turned, and
// reaches out to four times the part's radius. From within there is none.
TEST(Parts, ExplodeTowardsTheCamera) {
    Parts p;
    const Stage stage;
    _3D_Rep& hull = *p.hull;
    hull.transformBoundingObject(Point4(), Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1));
    hull.explode();
    const float edge = hull.getBoundingObject()->getRadius() * 4;
    const std::tuple<Point4, Point4, bool> views[] = {
        {{30, 0, 0, 1}, {}, true},
        {{20, 20, 5, 1}, {}, true},
        {{0, -30, 0.001f, 1}, {}, true},
        {{0, 0, 30, 1}, {0, edge - 0.2f, 0, 1}, true},
        {{0, 0, 30, 1}, {0, edge + 0.2f, 0, 1}, false},
        {{}, {0, 0, -1, 1}, false}};
    for (const auto& [eye, target, seen] : views) {
        SimpleGameCamera camera(eye, Vector4(0, 1, 0, 1), target);
        OpenGLContext::getInstance()->setCurrentCamera(&camera);
        OpenGLContext::getInstance()->startFrame(true);
        glRotatef(77, 1, 2, 3);
        hull.draw(DRAW_TEXTURE);
        EXPECT_EQ(readPixel(400, 300)[0] == 255, seen) << eye << target;
    }
}

}  // namespace
