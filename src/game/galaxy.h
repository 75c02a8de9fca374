#pragma once

#include <SDL.h>

#include <map>
#include <memory>
#include <optional>

#include "game/level.h"
#include "game/object_slot.h"

class _Control;
class _GameObject;
class Game;
class LaserFiredEvent;
class Point4;
class Starship;
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
    ~Galaxy();
    Galaxy(const Galaxy&) = delete;
    Galaxy& operator=(const Galaxy&) = delete;

    /// Flies `ps` until the player calls the menu or closes the window. Time does not pass between
    /// two runs. Throws Exception for a ship without a player at its controls, and GameOverEvent
    /// when the ship is lost. The ship stays the caller's.
    LVLenum run(Starship* ps);

    /// The slot of the object nearest to `start` among those that the line from `start` to `end`
    /// meets, leaving out `ego`; an empty slot when it meets none.
    ObjectSlot getObjectByLine(const _GameObject* ego, const Point4& start,
                               const Point4& end) const;
    /// The slot of that object; one that holds null, and always will, when there is no such object.
    ObjectSlot getObjectById(int i);

    /// How many shots were fired here in all.
    unsigned long getNumTorpedos() const { return last_torpedo; }
    unsigned long getNumLasers() const { return last_laser; }

protected:
    /// Lets `timediff` milliseconds pass for every object, in the order of their ids.
    void update(int timediff);
    /// Draws one frame.
    void show() const;
    /// Takes an object in under its id. An older object of that id is deleted first.
    void add(std::unique_ptr<_GameObject> object);

private:
    explicit Galaxy(Game* g);

    /// Puts an object into a slot of its own, which was never another's.
    void store(_GameObject& object);
    /// Writes null through the slot and deletes what it held, the player's ship excepted.
    void remove(ObjectSlot& slot);
    /// Updates one object and does what it asks for by a thrown event.
    void updateObject(ObjectSlot& slot, int timediff);
    void addLasers(const LaserFiredEvent& event);
    /// Gives a shot its id, from a count that starts again after 4096 shots, and takes it in.
    void addShot(std::unique_ptr<_GameObject> shot, unsigned int& count);

    /// Makes `ps` the ship that is flown, in place of an earlier one.
    void receive(Starship* ps);
    void forgetPlayer();
    /// Acts on one event of the queue. A value ends the flight.
    std::optional<LVLenum> dispatch(const SDL_Event& event, _Control& pilot);

    Starship* player_starship = nullptr;
    [[maybe_unused]] Game* game;
    std::map<int, ObjectSlot> objects;  ///< by id; a slot that holds null waits for its erasure
    unsigned int last_laser = 0;
    unsigned int last_torpedo = 0;
};
