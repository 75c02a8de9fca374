#pragma once

#include "game/rotating_game_object.h"

#include <memory>

class _3DObject;
class XMLElement;

/// A planet: a large turning model that stays in its place, with a layer of clouds that drifts
/// where the file names one. Ships and shots collide with a sphere some way above the surface, and
/// the player can land on it. A galaxy builds its planets and keeps them as long as it lives.
class Planet : public _RotatingGameObject {
public:
    /// Reads a "Planet" element. Throws Exception on any other.
    explicit Planet(const XMLElement& node);
    /// A planet with the id 0 that looks like the earth.
    Planet();
    ~Planet() override;

    void update(int time_diff) override;
    void drawModel(DRWenum draw_mode) const override;
    _BoundingObject* computeBoundingObject() const override;

    /// The landing screen. Blocks until a key goes down.
    void run() const;

    /// Whether the planet has clouds that drift.
    void setMultiTex(bool on) { multitex = on; }
    bool isMultiTex() const { return multitex; }
    /// How fast the clouds drift: 1 brings the texture back to its place every 5000 milliseconds.
    void setCloudVelocity(float v) { cloud_velocity = v; }
    float getCloudVelocity() const { return cloud_velocity; }

private:
    void readModel(const XMLElement& node);
    void moveTexture(int time_diff);
    void drawLandingText() const;

    std::unique_ptr<_3DObject> planet;
    float cloud_velocity = 0.2f;
    float cloud_x_offset = 0;
    bool multitex = true;
};
