#include "game/story_teller.h"

#include "game/game_event.h"
#include "tests/support/pilots.h"

namespace {

struct StoryTest : Pilots {
    ~StoryTest() override {
        if (StoryTeller::getInstance()) StoryTeller::destroyInstance();
    }

    static std::string transition(const std::string& event, const std::string& object, int points,
                                  int new_state) {
        return "<Transition event='" + event + "' " + object + " points='" +
               std::to_string(points) + "' new_state='" + std::to_string(new_state) + "'/>";
    }
    static std::string state(const std::string& children) {
        return "<State>" + children + "</State>";
    }
    static std::string story(const std::string& children) {
        return "<StoryTeller>" + children + "</StoryTeller>";
    }
    void tell(const std::string& children) {
        StoryTeller::createInstance(yard.element(story(children)));
    }
    static std::pair<unsigned int, unsigned int> pointsAndState() {
        return {StoryTeller::getInstance()->getPoints(), StoryTeller::getInstance()->getState()};
    }

    const Capture warnings{std::cerr};
    const std::string drone = "object='starship' id='7'", planet = "object='planet' id='7'";
    const std::string end = "<State level_end='game_over'/>";
};

}  // namespace

TEST_F(StoryTest, DeedsLeadFromStateToState) {
    tell(state(transition("landed_on", planet, 3, 0) + transition("destroyed", drone, -4, 1)) +
         state(transition("talked_to", drone, 5, 1) + transition("talked_to", drone, 9, 2) +
               transition("destroyed", drone, -6, 2)) +
         end);
    StoryTeller& story = *StoryTeller::getInstance();
    story.sendEvent(LANDED_ON, 0x5007);
    story.sendEvent(DESTROYED, 0x2007);
    EXPECT_EQ(warnings.text(),
              "WARNING (GAME): StoryTeller: no transition for 2 of object 20487 in state 0\n"
              "WARNING (GAME): StoryTeller: no transition for 0 of object 8199 in state 0\n");
    EXPECT_EQ(pointsAndState(), std::pair(0u, 0u));
    story.sendEvent(LANDED_ON, 0x2007);
    story.sendEvent(DESTROYED, 0x5007);
    EXPECT_EQ(pointsAndState(), std::pair(3u, 1u)) << "more than there is cannot be taken";
    story.sendEvent(TALKED_TO, 0x5007);
    EXPECT_EQ(pointsAndState(), std::pair(8u, 1u)) << "the first that fits";
    try {
        story.sendEvent(DESTROYED, 0x5007);
        FAIL() << "the level goes on";
    } catch (const LevelEndEvent& event) {
        EXPECT_EQ(event.getType(), LE_GAME_OVER);
        EXPECT_EQ(pointsAndState(), std::pair(2u, 2u));
    }
}

TEST_F(StoryTest, FaultsAreNamed) {
    const std::string update = "<MessageUpdate " + drone + " message='4'/>";
    const std::pair<std::string, std::string> cases[] = {
        {story(state("<Message/>")), "wrong xml node type (Message)"},
        {story(end),
         "State: attribute level_end: game_over would end the level with its first state"},
        {story(state(transition("lost", drone, 0, 0))),
         "Transition: attribute event: lost is unknown"},
        {story(state(transition("destroyed", drone, 0, 1))),
         "Transition: attribute new_state: 1 is no state"},
        {story(state(transition("destroyed", drone, 0, -1))),
         "Transition: attribute new_state: -1 is no state"},
        {story("<Message id='3' text=''/>" + state(update)),
         "MessageUpdate: attribute message: 4 is no message"},
    };
    for (const auto& [text, message] : cases)
        EXPECT_EQ(failureOf([&, &xml = text] { StoryTeller::createInstance(yard.element(xml)); }),
                  "StoryTeller::StoryTeller: " + message);
    EXPECT_EQ(StoryTeller::getInstance(), nullptr);
}

// The ship is gone, and so is its slot, when the story ends the level.
TEST_F(StoryTest, LostShipsAreTold) {
    auto fading = std::make_unique<Probe>(0x5007);
    fading->deed = [] { throw StarshipFadedEvent(); };
    space.add(std::move(fading));
    tell(state(transition("destroyed", drone, 0, 1)) + end);
    const ObjectSlot faded = space.getObjectById(0x5007);
    EXPECT_THROW(space.update(0), LevelEndEvent);
    EXPECT_EQ(*faded, nullptr);
}
