#pragma once

#include "game/moving_game_object.h"

class _3DObject;

/// A laser shot: flies straight ahead, loses its energy at a constant rate and is gone after two
/// seconds. What is left at a hit is the damage that it does. A cannon makes it, the galaxy owns
/// it.
class Laser : public _MovingGameObject {
public:
    /// `speed` is in world units per second. The shot takes its id from the galaxy; `obj` is kept
    /// and not drawn.
    Laser(const _3DObject* obj, float energy, const Point4& pos, const Vector4& dir,
          const Vector4& up, float speed);

    /// What a hit can still do. Whoever is hit lowers it in place.
    float& getEnergy() { return energy; }

    /// Flies on for `time_diff` milliseconds. Throws LaserFadedEvent when the energy is used up.
    void update(int time_diff) override;
    /// A red line; the same in all modes.
    void drawModel(DRWenum mode) const override;

protected:
    _BoundingObject* computeBoundingObject() const override;

private:
    float energy;
    float loss;  // energy per millisecond
    [[maybe_unused]] const _3DObject* obj;
};
