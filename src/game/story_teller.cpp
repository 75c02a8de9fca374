#include "game/story_teller.h"

#include "game/game_object.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <utility>

std::unique_ptr<StoryTeller> StoryTeller::instance;

namespace {

constexpr const char* event_names[] = {"DESTROYED", "TALKED_TO", "LANDED_ON"};

const std::map<std::string, ST_EVENTenum> events = {
    {"destroyed", DESTROYED}, {"talked_to", TALKED_TO}, {"landed_on", LANDED_ON}};

const std::map<std::string, GAMEOBJenum> kinds = {{"starship", GO_STARSHIP}, {"planet", GO_PLANET}};

const std::map<std::string, LEenum> level_ends = {
    {"none", LE_GAME_QUIT}, {"finished", LE_FINISHED}, {"game_over", LE_GAME_OVER}};

[[noreturn]] void reject(const XMLElement& node) {
    throw Exception("StoryTeller::StoryTeller: wrong xml node type (" + node.getName() + ")");
}

[[noreturn]] void rejectValue(const std::string& element, const std::string& attribute,
                              const std::string& value, const std::string& fault) {
    throw Exception("StoryTeller::StoryTeller: " + element + ": attribute " + attribute + ": " +
                    value + ' ' + fault);
}

template <class Value>
Value readWord(const XMLElement& node, const char* attribute,
               const std::map<std::string, Value>& words) {
    const std::string word = node.getAttributeAsString(attribute);
    const auto entry = words.find(word);
    if (entry == words.end()) rejectValue(node.getName(), attribute, word, "is unknown");
    return entry->second;
}

unsigned int readNumber(const XMLElement& node, const char* attribute) {
    return static_cast<unsigned int>(node.getAttributeAsInt(attribute, 10));
}

/// The object that an element is about. Its element gives an object no more than a number; the rest
/// of the id is its kind.
unsigned int readObject(const XMLElement& node) {
    return readNumber(node, "id") | readWord(node, "object", kinds);
}

StoryElement_t readTransition(const XMLElement& node) {
    const auto points = ifPresent([&] { return node.getAttributeAsInt("points", 10); });
    return {readWord(node, "event", events), readObject(node), points.value_or(0),
            node.getAttributeAsInt("new_state", 10)};
}

ObjectMessage_t readMessageUpdate(const XMLElement& node) {
    return {readObject(node), readNumber(node, "message")};
}

template <class Elements>
std::ostream& writeAll(std::ostream& out, const Elements& elements) {
    for (const auto& element : elements) out << element;
    return out;
}

/// Writes the entries of a map, each as the record that it stands for.
template <class Record, class Map>
std::ostream& writeEntries(std::ostream& out, const Map& entries) {
    for (const auto& [key, value] : entries) out << Record{key, value};
    return out;
}

}  // namespace

void StoryTeller::createInstance(const XMLElement& node) {
    if (instance)
        throw Exception(
            "storyTeller::createInstance: instance already set - delete instance first!");
    instance.reset(new StoryTeller(node));
}

void StoryTeller::destroyInstance() {
    if (!instance)
        throw Exception("storyTeller::destroyInstance: instance not set - create instance first!");
    instance.reset();
}

StoryTeller::StoryTeller(const XMLElement& node) {
    if (node.getName() != "StoryTeller") reject(node);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string name = child.getName();
        if (name == "Message")
            messages[readNumber(child, "id")] = child.getAttributeAsString("text");
        else if (name == "State")
            readState(child);
        else
            reject(child);
    }
    checkStates();
    if (states.empty()) return;
    for (const auto& [object, message] : states.front().message_updates)
        messages_by_id[object] = message;
}

void StoryTeller::readState(const XMLElement& node) {
    State_t read;
    const auto end = ifPresent([&] { return readWord(node, "level_end", level_ends); });
    read.level_end = end.value_or(LE_GAME_QUIT);
    if (states.empty() && read.level_end)
        rejectValue("State", "level_end", node.getAttributeAsString("level_end"),
                    "would end the level with its first state");

    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string name = child.getName();
        if (name == "Transition")
            read.transitions.push_back(readTransition(child));
        else if (name == "MessageUpdate")
            read.message_updates.push_back(readMessageUpdate(child));
        else
            reject(child);
    }
    states.push_back(std::move(read));
}

void StoryTeller::checkStates() const {
    for (const State_t& s : states) {
        for (const StoryElement_t& t : s.transitions)
            if (t.new_state < 0 || t.new_state >= std::ssize(states))
                rejectValue("Transition", "new_state", std::to_string(t.new_state), "is no state");
        for (const ObjectMessage_t& m : s.message_updates)
            if (!messages.contains(m.msg_id))
                rejectValue("MessageUpdate", "message", std::to_string(m.msg_id), "is no message");
    }
}

void StoryTeller::sendEvent(ST_EVENTenum type, unsigned int id, void* /*data*/) {
    if (states.empty()) return;

    const auto& transitions = states[state].transitions;
    const auto next = std::ranges::find_if(
        transitions, [&](const StoryElement_t& t) { return t.id == id && t.type == type; });
    if (next == transitions.end()) {
        logLine(std::cerr, "WARNING (GAME): ", "StoryTeller: no transition for ",
                static_cast<int>(type), " of object ", id, " in state ", state);
        return;
    }
    addPoints(next->points);
    state = static_cast<unsigned int>(next->new_state);
    if (const LEenum end = states[state].level_end) throw LevelEndEvent(end);
}

/// A change that the counter cannot hold is left out.
void StoryTeller::addPoints(int change) {
    const long long sum = static_cast<long long>(points) + change;
    if (std::in_range<unsigned int>(sum)) points = static_cast<unsigned int>(sum);
}

std::string StoryTeller::getMessage(unsigned int /*id*/) const {
    return "Sorry, messages aren't implemented yet.";
}

std::ostream& operator<<(std::ostream& out, ST_EVENTenum event) {
    const bool valid = event >= DESTROYED && event <= LANDED_ON;
    return out << (valid ? event_names[event] : "ERROR: invalid value");
}

std::ostream& operator<<(std::ostream& out, const StoryElement_t& transition) {
    return out << "StoryTeller Transition:\n"
               << " * event type : " << transition.type << '\n'
               << " * object ID  : " << transition.id << '\n'
               << " * points     : " << transition.points << '\n'
               << " * new state  : " << transition.new_state << '\n';
}

std::ostream& operator<<(std::ostream& out, const MessageElement_t& message) {
    return out << "MessageElement_t:\n"
               << " * message ID : " << message.id << '\n'
               << " * text       : " << message.text << '\n';
}

std::ostream& operator<<(std::ostream& out, const ObjectMessage_t& update) {
    return out << " * object id  : " << update.o_id << '\n'
               << " * message id : " << update.msg_id << '\n';
}

std::ostream& operator<<(std::ostream& out, const State_t& state) {
    writeAll(out << "list of message updates:\n", state.message_updates);
    writeAll(out << "list of transitions\n", state.transitions);
    return out << "level end: " << state.level_end << '\n';
}

std::ostream& operator<<(std::ostream& out, const StoryTeller& story) {
    out << "points : " << story.points << "\nstate  : " << story.state << '\n';
    writeAll(out << "states : \n", story.states);
    writeEntries<ObjectMessage_t>(out << "messages_by_id : \n", story.messages_by_id);
    return writeEntries<MessageElement_t>(out << "messages : \n", story.messages);
}
