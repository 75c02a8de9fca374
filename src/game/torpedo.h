#pragma once

#include "game/moving_game_object.h"
#include "game/object_slot.h"
#include "game/starship_part.h"

#include <memory>

class AnimatedSprite;
class XMLElement;

/// A homing torpedo, catalogue part and moving object in one. It flies straight ahead for a second,
/// then turns towards its target at a limited rate, and bursts when it has hit something or its
/// time is over. A launcher copies it out of the catalogue, the galaxy owns what was launched.
class Torpedo : public _StarshipPart, public _MovingGameObject {
public:
    /// Reads a "Torpedo" element. Throws Exception on any other element.
    explicit Torpedo(const XMLElement& node);
    /// The copy has not burst.
    Torpedo(const Torpedo& other);
    ~Torpedo() override;

    // Name, kind and size are those of the object in space.
    using _GameObject::getName;
    using _GameObject::getSize;
    using _GameObject::getType;

    /// How far it flies, in world units.
    unsigned long getRange() const { return range; }
    unsigned int getCloakCat() const { return cloak_cat; }
    unsigned long getLoseDist() const { return lose_dist; }
    /// Milliseconds left to fly.
    int getTTL() const { return ttl; }
    /// The galaxy's slot of what it flies to; empty for a torpedo that flies straight on.
    ObjectSlot getTarget() const { return target; }
    /// What a hit can still do. Whoever is hit lowers it in place.
    float& getEnergy() { return energy; }

    /// Sets the torpedo off at its next update.
    void destroy() { ttl = 0; }
    /// Mounts the camera that looks over the torpedo's back.
    void activateCamera();

    /// Flies on for `time_diff` milliseconds, or plays the explosion. Throws TorpedoFadedEvent at
    /// its end.
    void update(int time_diff) override;
    /// A blue line, the same in all modes; nothing once the energy is delivered; then the
    /// explosion.
    void drawModel(DRWenum mode) const override;

protected:
    friend class TorpedoLauncher;

    using _GameObject::setName;
    void setRange(unsigned long r) { range = r; }
    void setCloakCat(unsigned int c) { cloak_cat = c; }
    void setLoseDist(unsigned long d) { lose_dist = d; }
    void setTarget(const ObjectSlot& t) { target = t; }

    _BoundingObject* computeBoundingObject() const override;

private:
    void burst();
    /// Turns towards the target by what `time_diff` milliseconds allow.
    void home(int time_diff);

    unsigned long range = 0;
    unsigned int cloak_cat = 0;
    unsigned long lose_dist = 0;
    float energy = 0;
    int ttl = 0;
    int end_warmup = 0;  ///< homing starts when `ttl` has fallen to this
    [[maybe_unused]] int update_itvl = 500;
    std::unique_ptr<AnimatedSprite> explosion;  ///< null until it bursts
    ObjectSlot target;
};
