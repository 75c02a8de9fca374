// A story, given as a game file whose root element it is, and behind a zero byte the deeds that it
// is told: two bytes each, what happened and to which object.

#include "fuzz/fuzz.h"
#include "game/game_object.h"
#include "game/story_teller.h"
#include "xml/xml_parser.h"

#include <sstream>

namespace {

/// Takes the deed to the story; false when that ends the level.
bool tell(StoryTeller& story, std::uint8_t deed, std::uint8_t object) {
    constexpr unsigned int planets_from = 128;
    const unsigned int kind = object < planets_from ? GO_STARSHIP : GO_PLANET;
    const std::size_t before = story.getState();
    fuzz::require(before < story.getStates().size() || story.getStates().empty());
    try {
        story.sendEvent(static_cast<ST_EVENTenum>(deed % 3), kind | object % planets_from);
    } catch (const LevelEndEvent& end) {
        fuzz::require(end.getType() == LE_FINISHED || end.getType() == LE_GAME_OVER);
        fuzz::require(story.getStates().at(story.getState()).level_end == end.getType());
        return false;
    }
    fuzz::require(story.getStates().empty() ||
                  story.getStates().at(story.getState()).level_end == LE_GAME_QUIT);
    return true;
}

void tellAll(const std::string& deeds) {
    StoryTeller& story = *StoryTeller::getInstance();
    for (std::size_t i = 1; i + 1 < deeds.size(); i += 2) {
        const auto deed = static_cast<std::uint8_t>(deeds[i]);
        if (!tell(story, deed, static_cast<std::uint8_t>(deeds[i + 1]))) break;
    }
    std::ostringstream out;
    out << story;
}

}  // namespace

int LLVMFuzzerInitialize(int*, char***) {
    fuzz::silence();
    // Keeps the XML library started.
    static const XMLParser any(fuzz::folder().write("any.xml", "<!DOCTYPE a><a/>"));
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input = fuzz::toText(data, size);
    const std::size_t border = std::min(input.find('\0'), input.size());
    fuzz::attempt([&] {
        const XMLParser parser(fuzz::folder().write("story.xml", input.substr(0, border)));
        StoryTeller::createInstance(parser.getRootElement());
        tellAll(input.substr(border));
    });
    if (StoryTeller::getInstance()) StoryTeller::destroyInstance();
    return 0;
}
