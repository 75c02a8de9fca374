#pragma once

#include "game/game_event.h"

#include <list>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

class XMLElement;

/// What can happen to an object of the story.
enum ST_EVENTenum {
    DESTROYED = 0,
    TALKED_TO = 1,
    LANDED_ON = 2,
};

/// A way from one state of the story to the next.
struct StoryElement_t {
    ST_EVENTenum type;
    unsigned int id;  ///< of the object, its kind included
    int points;       ///< for the player; may be below 0
    int new_state;
};

/// Something that an object can say.
struct MessageElement_t {
    unsigned int id;
    std::string text;
};

/// Which message an object carries.
struct ObjectMessage_t {
    unsigned int o_id;  ///< of the object, its kind included
    unsigned int msg_id;
};

/// How far the story has come.
struct State_t {
    std::list<ObjectMessage_t> message_updates;  ///< what objects say from here on
    std::list<StoryElement_t> transitions;       ///< the first that fits is taken
    LEenum level_end = LE_GAME_QUIT;             ///< any other ends the level with that
};

/// The story of the level in play: numbered states, and the deeds that lead from one to another. It
/// counts the player's points, and a state of it can end the level. The level creates and destroys
/// it; the galaxy tells it what happens.
class StoryTeller {
public:
    /// Reads a "StoryTeller" element; one without states takes no events. Throws Exception when
    /// there is a story already, and on any fault of the element.
    static void createInstance(const XMLElement& node);
    /// Throws Exception when there is no story.
    static void destroyInstance();
    /// Null where there is no story.
    static StoryTeller* getInstance() { return instance.get(); }

    StoryTeller(const StoryTeller&) = delete;
    StoryTeller& operator=(const StoryTeller&) = delete;

    /// Something has happened to the object of that id; `data` is for the sender's own use. Warns
    /// of what the present state does not know. Throws LevelEndEvent when the story ends the level.
    void sendEvent(ST_EVENTenum type, unsigned int id, void* data = nullptr);

    /// All states of the story, and the number of the present one.
    const std::vector<State_t>& getStates() const { return states; }
    unsigned int getState() const { return state; }
    /// The player's points in this level.
    unsigned int getPoints() const { return points; }
    /// What the object of that id has to say.
    std::string getMessage(unsigned int id) const;

private:
    explicit StoryTeller(const XMLElement& node);

    void readState(const XMLElement& node);
    /// Whether all that the states refer to is there.
    void checkStates() const;
    void addPoints(int change);

    friend std::ostream& operator<<(std::ostream& out, const StoryTeller& story);

    static std::unique_ptr<StoryTeller> instance;

    unsigned int points = 0;
    unsigned int state = 0;
    std::vector<State_t> states;
    std::map<unsigned int, unsigned int> messages_by_id;  ///< by object, as the level begins
    std::map<unsigned int, std::string> messages;
};

/// For debugging.
std::ostream& operator<<(std::ostream& out, ST_EVENTenum event);
std::ostream& operator<<(std::ostream& out, const StoryElement_t& transition);
std::ostream& operator<<(std::ostream& out, const MessageElement_t& message);
std::ostream& operator<<(std::ostream& out, const ObjectMessage_t& update);
std::ostream& operator<<(std::ostream& out, const State_t& state);
