#include "game/camera_management.h"

#include "game/chase_camera.h"
#include "game/game_camera.h"
#include "tests/support/geometry.h"
#include "tests/support/probe.h"
#include "tests/support/window.h"

#include <gtest/gtest.h>

namespace {

/// Three objects with a camera at the front and one at the back, the oldest being the player's.
class Cameras : public testing::Test {
protected:
    Cameras() { management.setPlayerObject(player.get()); }

    static std::unique_ptr<Probe> make(float x) {
        window();
        return std::make_unique<Probe>(1, x);
    }
    bool shows(const std::unique_ptr<Probe>& object, CAMPOSenum pos) const {
        return management.getCurrentCamera() == object->getCamera(pos);
    }
    /// The object that is seen exploding, null when it is gone. Throws when there is no such view.
    const _GameObject* exploding() const {
        return dynamic_cast<ChaseCamera&>(*management.getCurrentCamera()).getTargetObject();
    }

    CameraManagement& management = *CameraManagement::getInstance();
    std::unique_ptr<Probe> player = make(100), middle = make(200), newest = make(300);
};

TEST_F(Cameras, TheWalkGoesFromNewerToOlderObjectsAndKeepsThePlace) {
    management.changeCamera(CHG_FIRST_PLANET);
    management.changeCamera(CHG_CURR_LEFT_WING);
    EXPECT_TRUE(shows(newest, CPOS_FRONT)) << "it has no wing";
    management.changeCamera(CHG_CURR_BACK);
    for (const auto& [change, object] : {std::pair(CHG_NEXT_RELATED_OBJECT, &middle),
                                         {CHG_NEXT_RELATED_OBJECT, &player},
                                         {CHG_NEXT_RELATED_OBJECT, &newest},
                                         {CHG_PREV_RELATED_OBJECT, &player}}) {
        management.changeCamera(change);
        EXPECT_TRUE(shows(*object, CPOS_BACK));
    }
}

TEST_F(Cameras, AnExplosionIsWatchedFromAboveAndAheadUntilTheNextChange) {
    management.changeCamera(CHG_FIRST_PLANET);
    for (const auto* object : {&player, &middle}) {
        management.changeCamera(CAM_EXPLOSION, object->get());
        management.changeCamera(CHG_NEXT_RELATED_OBJECT);
        EXPECT_EQ(exploding(), object->get()) << "no way to walk on from here";
    }
    const Vector4 away = direction(0, 1, 1).normalize() * 20;
    EXPECT_THAT(management.getCurrentCamera()->getPosition(), IsNear(place(200, 0, 0) + away));
    management.changeCamera(CHG_FIRST_TORPEDO);
    EXPECT_TRUE(shows(newest, CPOS_FRONT)) << "there is no torpedo, but the view is over";
}

TEST_F(Cameras, ASetWhoseObjectHasDiedIsNeverUsedAgain) {
    management.changeCamera(CHG_FIRST_PLANET);
    management.changeCamera(CAM_EXPLOSION, newest.get());
    newest = nullptr;
    newest = make(300);  // may well stand where the dead one stood
    EXPECT_EQ(exploding(), nullptr) << "frozen";
    management.changeCamera(CHG_CURR_BACK);
    EXPECT_TRUE(shows(player, CPOS_FRONT));

    management.changeCamera(CAM_EXPLOSION, player.get());
    player.reset();
    management.changeCamera(CHG_CURR_BACK);
    EXPECT_EQ(exploding(), nullptr) << "nowhere else to go";
    management.setPlayerObject(middle.get());
    management.changeCamera(CHG_CURR_BACK);
    EXPECT_TRUE(shows(middle, CPOS_FRONT)) << "the next life";
}

/// Where a world point lies in the picture of a camera: x to the right, y upwards, -z ahead.
Point4 seen(const _GameCameraInterface& camera, const Point4& p) {
    camera.activate();
    return camera.getMatrix() ^ p;
}

TEST_F(Cameras, ARidingCameraFollowsTheObjectAndTurnsToAnyPoint) {
    player->setOrientation(direction(1, 0, 0));
    player->addCamera(CAM_PLANET, CPOS_LEFT, direction(0, 2, 5));
    auto& camera = dynamic_cast<GameCamera&>(*player->getCamera(CPOS_LEFT));
    camera.setAspectRatio(1);
    camera.rotateY(90);
    EXPECT_THAT(seen(camera, place(115, 2, 0)), IsNear(place(10, 0, 0))) << "a look to the left";
    for (const Point4& target : {place(200, 30, -40), place(-20, 50, 70), place(-20, -50, -70),
                                 place(105, 52, 0), place(105, 2, -9), place(-50, 2, 0)}) {
        camera.setTarget(target);
        EXPECT_NEAR(seen(camera, target).z, -Vector4(place(105, 2, 0), target).getLength(), 1e-3);
        EXPECT_GT(seen(camera, target + direction(0, 1, 0)).y, -1e-3) << "upright at " << target;
    }
}

TEST_F(Cameras, AChaseCameraKeepsTheObjectInViewInEveryGeometry) {
    for (const Point4& object : {Point4(), place(0, 0, 50), place(9, 8, 7)}) {
        player->setPosition(object);
        const Point4 seat = object + direction(0, 9, 0);
        ChaseCamera camera(player.get(), seat);
        camera.setAspectRatio(1);
        EXPECT_NEAR(seen(camera, object).z, -9, 1e-3);
        EXPECT_NEAR(camera.getMatrix().getX().getLength(), 1, 1e-3) << "squeezed at " << object;
        EXPECT_GT(camera.getUp().getLength(), 0);
        camera.freeze();
        player->setPosition(seat);
        EXPECT_EQ(camera.getTarget(), object);
    }
}

}  // namespace
