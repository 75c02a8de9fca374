#pragma once

#include "3d/bounding_box.h"
#include "game/game_object.h"
#include "game/hitable.h"
#include "game/moving_game_object.h"

#include <list>
#include <memory>
#include <string>

class _3D_Rep;
class _Control;
class _StarshipPart;
class AnimatedSprite;
class Cannon;
class Cloak;
class Engine;
class Hull;
class Radar;
class Reactor;
class Shield;
class Tank;
class TorpedoLauncher;
class Wing;
class XMLElement;

/// The object that flies and fights: copies of catalogue parts on the slots of a hull, steered by a
/// control. Galaxies hold ships; the player's ship belongs to the game and visits the galaxies.
///
/// What hits a ship meets its shield first; what comes through takes the first part that it meets.
/// A ship whose first part explodes is doomed: it drifts and rolls without control. When the hull
/// goes, the whole ship bursts, can no longer be hit, and leaves by a StarshipFadedEvent when the
/// big explosion is over.
class Starship : public _MovingGameObject, public _Hitable {
public:
    /// Builds a "Starship" element. Throws Exception on a wrong element or child,
    /// PartStoreException on a part that the catalogue lacks, InvalidSlotException on a part that
    /// finds no slot. Only the absence of radar, shield and cloak is forgiven.
    explicit Starship(const XMLElement& node);
    ~Starship() override;

    Hull* getHull() const { return hull.get(); }
    Reactor* getReactor() const { return reactor.get(); }
    Tank* getTank() const { return tank.get(); }
    Engine* getEngine() const { return engine.get(); }
    /// These may be null: the ship has none then.
    Shield* getShield() const { return shield.get(); }
    Cloak* getCloak() const { return cloak.get(); }
    Radar* getRadar() const { return radar.get(); }
    /// The launcher that fires.
    TorpedoLauncher* getTorpedoLauncher() const { return torpedo_launcher.get(); }
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
    /// The same, but a null leaves the ship without the part. The shield wraps itself around the
    /// finished ship. A replaced launcher that is mounted stays on its slot and fires no more.
    void setShield(Shield* s);
    void setCloak(Cloak* c);
    void setRadar(Radar* r);
    void setTorpedoLauncher(TorpedoLauncher* t);
    /// Adds a cannon to those that fire, and owns it. Ignores a null.
    void addCannon(Cannon* c);

    /// Whether the ship leaves a trail of vapour.
    void setVapor(bool on) { vapor = on; }

    /// Takes the box around all parts, in ship coordinates.
    void computeTotalBoundingBox();

    /// Bursts the ship; with `h` the hull vanishes at once. A second call changes only that. Throws
    /// Exception when the effects hold no "starship_explosion".
    void explode(bool h);

    /// Passes a projectile through the shield to the part tree. `energy` goes out as what is left
    /// of it. True when the shield swallowed it or a part was hit.
    bool isPerhapsHit(const _BoundingObject& o, float& energy) override;

    /// Moves the ship, then lets its parts and its pilot work: the reactor charges, the shield
    /// takes its share, the pilot has what is left. Throws the pilot's firing events, and
    /// StarshipFadedEvent at the ship's end.
    void update(int time_diff) override;
    /// Draws the parts, the shield for a moment after each hit, and in the end the explosion.
    void drawModel(DRWenum mode) const override;
    _BoundingObject* computeBoundingObject() const override;

private:
    friend class Hull;
    friend class _Control;

    void readPose(const XMLElement& node);
    /// Fetches the parts that the element names. The shield, which needs the finished ship, is
    /// handed back.
    std::unique_ptr<Shield> readParts(const XMLElement& node);
    void readChildren(const XMLElement& node);
    template <class Control>
    void takeControl(const XMLElement&);
    void takeAIControl(const XMLElement& node);
    void takeCircleControl(const XMLElement& node);
    void hangWing(const XMLElement& node);
    void hangCannon(Wing& wing, const XMLElement& node);
    void hangLauncher(Wing& wing, const XMLElement& node);
    void hangSilentCannon(const XMLElement& node);
    void hangSilentLauncher(const XMLElement& node);
    void skip(const XMLElement&) {}
    void addCameras();

    template <class Part>
    void replace(std::unique_ptr<Part>& place, Part* part);
    void live(int time_diff);
    void runReactor(int time_diff);
    void runShield(int time_diff);
    void flicker(int time_diff);
    void leaveTrail() const;
    void dropLostTarget();
    bool isMet(const _BoundingObject& o, float& energy);
    bool isBursting() const { return explosion != nullptr; }
    /// Shows the end from outside, if the view is through one of this ship's cameras.
    void showEnd();

    BoundingBox total_bbox;
    ObjectSlot selected_object;
    bool vapor = false;
    bool hide = false;  ///< the hull is no longer drawn while the ship bursts

    // Milliseconds. While the first one lasts, visible and invisible phases of the shield
    // alternate.
    int shield_display_duration = 0;
    int shield_display_flicker_1 = 0;  ///< left of the visible phase
    int shield_display_flicker_0 = 0;  ///< left of the invisible one

    // At its end a ship loses the last of these first: the pilot leaves before the parts go.
    std::unique_ptr<AnimatedSprite> explosion;           ///< null until the ship bursts
    std::list<std::unique_ptr<Cannon>> cannons;          ///< those that fire
    std::list<std::unique_ptr<_3D_Rep>> silent_weapons;  ///< drawn and hit, but they do not fire
    std::list<std::unique_ptr<Wing>> wings;              ///< on the hull's slots
    std::unique_ptr<TorpedoLauncher> torpedo_launcher;
    std::unique_ptr<Engine> engine;
    std::unique_ptr<Tank> tank;
    std::unique_ptr<Reactor> reactor;
    std::unique_ptr<Radar> radar;
    std::unique_ptr<Cloak> cloak;
    std::unique_ptr<Shield> shield;
    std::unique_ptr<Hull> hull;
    std::unique_ptr<_Control> control;
};
