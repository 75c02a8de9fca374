#pragma once

#include "game/level.h"
#include "game/near_pairs.h"
#include "game/object_grid.h"
#include "game/object_slot.h"

#include <SDL.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

class _Control;
class _GameObject;
class Game;
class LaserFiredEvent;
class ParticleGroup;
class Planet;
class Point4;
class SpaceBG;
class Starship;
class TorpedoFiredEvent;
class XMLElement;

/// One star system: all objects that exist together, and the loop that moves and draws them in real
/// time. Objects do not touch the galaxy's containers; one that fires or whose life ends throws a
/// game event out of its update, and the sweep acts on it.
class Galaxy {
public:
    /// Builds the planets and ships of a "Galaxy" element. Throws Exception, or a child of it, on
    /// any fault of the game file.
    Galaxy(const XMLElement& root_node, Game* g);
    /// Ends all objects but the player's ship; every slot of the galaxy reads null from then on.
    virtual ~Galaxy();
    Galaxy(const Galaxy&) = delete;
    Galaxy& operator=(const Galaxy&) = delete;

    /// Flies `ps` until the player calls the menu or closes the window. Time does not pass between
    /// two runs. Throws Exception for a ship without a player at its controls, GameOverEvent
    /// when the ship is lost, and LevelEndEvent when the story ends the level. The ship stays the
    /// caller's.
    LVLenum run(Starship* ps);

    /// The slot of the object nearest to `start` among those that the line from `start` to `end`
    /// meets, leaving out `ego`; an empty slot when it meets none.
    virtual ObjectSlot getObjectByLine(const _GameObject* ego, const Point4& start,
                                       const Point4& end) const;
    /// The slot of that object; one that holds null, and always will, when there is no such object.
    ObjectSlot getObjectById(int i) const;
    /// All objects by their ids. A slot that holds null waits for its erasure by the next sweep.
    const std::map<int, ObjectSlot>& getObjects() const { return objects; }

    /// How many shots were fired here in all.
    unsigned long getNumTorpedos() const { return last_torpedo; }
    unsigned long getNumLasers() const { return last_laser; }

protected:
    /// Lets `timediff` milliseconds pass for every object, in the order of their ids.
    void update(int timediff);
    /// Lets all objects that touch act on each other, each pair once, in the order of their ids.
    /// True when a ship touched a planet: the time that this took is no time of the game.
    virtual bool detectCollisions();
    /// Lets two objects act on each other if they touch; the first has the lower id. Either slot
    /// may read null afterwards. True when a ship touched a planet. Throws Exception for a first
    /// object of no known kind.
    bool collide(const ObjectSlot& first, const ObjectSlot& second);
    /// Draws one frame.
    void show() const;
    /// Makes `ps` the ship that is flown, in place of an earlier one. Throws Exception for a ship
    /// without a player at its controls.
    void receive(Starship* ps);
    /// Takes an object in under its id. An older object of that id is deleted first.
    void add(std::unique_ptr<_GameObject> object);

private:
    friend class _GameObject;

    explicit Galaxy(Game* g);

    /// Puts an object into a slot of its own, which was never another's.
    void store(_GameObject& object);
    /// Makes this the galaxy that the object is in, and no other.
    void adopt(_GameObject& object);
    /// Writes null through the slot and deletes what it held, the player's ship excepted.
    void remove(const ObjectSlot& slot);
    /// Ends a ship and lets the story know. Throws LevelEndEvent when that decides the level.
    void lose(const ObjectSlot& ship);
    /// Lets go of an object that lives on elsewhere, or that is dying. Its slot reads null.
    void forget(_GameObject& object);
    /// Updates one object and does what it asks for by a thrown event.
    void updateObject(const ObjectSlot& slot, int timediff);
    void addLasers(const LaserFiredEvent& event);
    void addTorpedo(const TorpedoFiredEvent& event);
    /// Gives a shot its id, from a count that starts again after 4096 shots, and takes it in.
    void addShot(std::unique_ptr<_GameObject> shot, unsigned int& count);

    /// What two objects of certain kinds do to each other if they touch. True for the contact of a
    /// ship with a planet.
    using Rule = bool (Galaxy::*)(const ObjectSlot&, const ObjectSlot&);
    static Rule findRule(int first_type, int second_type);
    /// The same rule for the kinds the other way round.
    template <Rule rule>
    bool swapped(const ObjectSlot& first, const ObjectSlot& second);

    bool approachShip(const ObjectSlot& planet, const ObjectSlot& ship);
    bool approachPlanet(const ObjectSlot& ship, const ObjectSlot& planet);
    bool stopTorpedo(const ObjectSlot& planet, const ObjectSlot& torpedo);
    bool stopLaser(const ObjectSlot& planet, const ObjectSlot& laser);
    bool crash(const ObjectSlot& ship, const ObjectSlot& other);
    template <class Shot>
    bool hit(const ObjectSlot& ship, const ObjectSlot& shot);
    bool setOffBoth(const ObjectSlot& torpedo, const ObjectSlot& other);
    bool shootDown(const ObjectSlot& torpedo, const ObjectSlot& laser);

    /// Lands the player on the planet that the ship touches, to the take-off; a ship of the
    /// computer vanishes there. True for the player.
    bool land(const ObjectSlot& ship, const Planet& planet, float climb);
    /// Puts the player's ship `climb` units further out, or further if that is still too near, and
    /// turns it away from the planet.
    void takeOff(const Planet& planet, float climb);

    /// Starts the loop of the flight's engine in place of that of an earlier flight.
    void startEngineLoop(const std::string& sound);
    /// The loop runs silently.
    void muteEngineLoop() const;
    void stopEngineLoop();
    /// Acts on one event of the queue. A value ends the flight.
    std::optional<LVLenum> dispatch(const SDL_Event& event, _Control& pilot);

    Starship* player_starship = nullptr;
    [[maybe_unused]] Game* game;
    std::map<int, ObjectSlot> objects;  ///< by id; a slot that holds null waits for its erasure
    ObjectSlot nobody;                  ///< stands for all ids that no object has
    ObjectGrid grid;                    ///< where the objects are
    NearPairs near_pairs{grid};
    mutable ObjectGrid::Found along_line;  ///< kept between questions for its memory
    std::unique_ptr<SpaceBG> bg;
    ParticleGroup* particles = nullptr;  ///< the particle factory owns it
    unsigned int last_laser = 0;
    unsigned int last_torpedo = 0;
    std::optional<int> engine_channel;  ///< where the engine's loop plays, if it does
};
