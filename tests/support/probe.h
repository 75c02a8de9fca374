#pragma once

#include "3d/bounding_sphere.h"
#include "game/moving_game_object.h"

#include <functional>

/// An object for tests of what holds for all objects: a sphere of radius 1 with a camera at the
/// front and one at the back, which counts its updates and drawings, and does what a test wants
/// done in an update.
struct Probe : _MovingGameObject {
    explicit Probe(int id, float x = 0, float z = 0, GAMEOBJenum type = GO_STARSHIP)
        : _MovingGameObject(id, type) {
        setPosition(Point4(x, 0, z, 1));
        for (auto place : {CPOS_FRONT, CPOS_BACK}) addCamera(CAM_PLANET, place, Vector4());
    }
    void update(int time_diff) override {
        ++updated;
        move(time_diff);
        if (deed) deed();
    }
    void drawModel(DRWenum) const override { ++drawn; }
    _BoundingObject* computeBoundingObject() const override {
        return new BoundingSphere(Point4(), 1);
    }

    std::function<void()> deed;
    int updated = 0;
    mutable int drawn = 0;
};
