#pragma once

#include <list>
#include <memory>
#include <string>

#include "3d/bounding_box.h"
#include "game/game_object.h"
#include "game/hitable.h"
#include "game/moving_game_object.h"

class _3D_Rep;
class _Control;
class _StarshipPart;
class Cannon;
class Engine;
class Hull;
class Reactor;
class Tank;
class Wing;
class XMLElement;

/// The object that flies and fights: copies of catalogue parts on the slots of a hull, steered by a
/// control. Galaxies hold ships; the player's ship belongs to the game and visits the galaxies.
///
/// A ship whose first part explodes is doomed: it drifts and rolls without control. When the hull
/// goes, the whole ship bursts, can no longer be hit, and leaves by a StarshipFadedEvent.
class Starship : public _MovingGameObject, public _Hitable {
public:
    /// Builds a "Starship" element. Throws Exception on a wrong element or child,
    /// PartStoreException on a part that the catalogue lacks, InvalidSlotException on a part that
    /// finds no slot.
    explicit Starship(const XMLElement& node);
    ~Starship() override;

    Hull* getHull() const { return hull.get(); }
    Reactor* getReactor() const { return reactor.get(); }
    Tank* getTank() const { return tank.get(); }
    Engine* getEngine() const { return engine.get(); }
    /// The pilot. Throws Exception when there is none yet.
    _Control* getControl() const;
    /// The target: the galaxy's slot of that object, empty without one. A kept slot reads null when
    /// the object has left the galaxy.
    ObjectSlot getSelectedObject() const { return selected_object; }
    /// How far away a target may be, in world units, before the ship loses it.
    double getTorpedoRange() const;

    /// The setters own the part from here on and release the one that they replace; what hung on a
    /// replaced hull goes with it. A null changes nothing.
    void setHull(Hull* h);
    void setReactor(Reactor* r);
    void setTank(Tank* t);
    void setEngine(Engine* e);
    /// Adds a cannon to those that fire, and owns it. Ignores a null.
    void addCannon(Cannon* c);

    /// Takes the box around all parts, in ship coordinates.
    void computeTotalBoundingBox();

    /// Bursts the ship; with `h` the hull vanishes at once. A second call changes only that.
    void explode(bool h);

    /// Passes a projectile to the part tree. `energy` goes out as what is left of it.
    bool isPerhapsHit(const _BoundingObject& o, float& energy) override;

    /// Moves the ship, then lets its parts and its pilot work. Throws the pilot's firing events,
    /// and StarshipFadedEvent at the ship's end.
    void update(int time_diff) override;
    void drawModel(DRWenum mode) const override;
    _BoundingObject* computeBoundingObject() const override;

private:
    friend class Hull;
    friend class _Control;

    void readPose(const XMLElement& node);
    void readParts(const XMLElement& node);
    void readChildren(const XMLElement& node);
    template <class Control>
    void takeControl(const XMLElement&);
    void hangWing(const XMLElement& node);
    void hangCannon(const XMLElement& node);
    void skip(const XMLElement&) {}
    void addCameras();

    template <class Part>
    void install(std::unique_ptr<Part>& place, Part* part);
    void runReactor(int time_diff);
    void dropLostTarget();
    /// Shows the end from outside, if the view is through one of this ship's cameras.
    void showEnd();

    BoundingBox total_bbox;
    std::unique_ptr<Hull> hull;
    std::unique_ptr<Reactor> reactor;
    std::unique_ptr<Tank> tank;
    std::unique_ptr<Engine> engine;
    std::list<std::unique_ptr<Wing>> wings;            ///< on the hull's slots
    std::list<std::unique_ptr<_3D_Rep>> hull_weapons;  ///< drawn and hit, but they do not fire
    std::list<std::unique_ptr<Cannon>> cannons;        ///< those that fire
    std::unique_ptr<_Control> control;
    bool bursting = false;
    bool hide = false;  ///< the hull is no longer drawn while the ship bursts
    ObjectSlot selected_object;
};
