#include "game/story_teller.h"

#include "game/galaxy.h"
#include "game/level.h"
#include "game/world.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/probe.h"
#include "tests/support/ship_yard.h"

#include <gtest/gtest.h>

namespace {

struct StoryTest : testing::Test {
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
    /// What a debugger sees of the story's progress.
    static std::string progress() {
        std::ostringstream text;
        text << *StoryTeller::getInstance();
        return text.str().substr(0, text.str().find("states"));
    }

    const Capture silence{std::cout};
    const Capture warnings{std::cerr};
    ShipYard yard;
    const std::string ship = "object='starship' id='7'", planet = "object='planet' id='7'";
    const std::string end = "<State level_end='game_over'/>";
};

}  // namespace

TEST_F(StoryTest, DeedsLeadFromStateToState) {
    tell(state(transition("landed_on", planet, 3, 0) + transition("destroyed", ship, -4, 1)) +
         state(transition("talked_to", ship, 5, 1) + transition("talked_to", ship, 9, 2) +
               transition("destroyed", ship, -6, 2)) +
         end);
    StoryTeller& story = *StoryTeller::getInstance();
    story.sendEvent(LANDED_ON, 0x5007);
    story.sendEvent(DESTROYED, 0x2007);
    EXPECT_EQ(warnings.text(),
              "WARNING (GAME): StoryTeller: no transition for 2 of object 20487 in state 0\n"
              "WARNING (GAME): StoryTeller: no transition for 0 of object 8199 in state 0\n");
    EXPECT_EQ(progress(), "points : 0\nstate  : 0\n");
    story.sendEvent(LANDED_ON, 0x2007);
    story.sendEvent(DESTROYED, 0x5007);
    EXPECT_EQ(progress(), "points : 3\nstate  : 1\n") << "more than there is cannot be taken";
    story.sendEvent(TALKED_TO, 0x5007);
    EXPECT_EQ(progress(), "points : 8\nstate  : 1\n") << "the first that fits";
    try {
        story.sendEvent(DESTROYED, 0x5007);
        FAIL() << "the level goes on";
    } catch (const LevelEndEvent& event) {
        EXPECT_EQ(event.getType(), LE_GAME_OVER);
        EXPECT_EQ(progress(), "points : 2\nstate  : 2\n");
    }
}

TEST_F(StoryTest, FaultsAreNamed) {
    const std::string update = "<MessageUpdate " + ship + " message='4'/>";
    const std::pair<std::string, std::string> cases[] = {
        {story(state("<Message/>")), "wrong xml node type (Message)"},
        {"<Tale/>", "wrong xml node type (Tale)"},
        {story(end),
         "State: attribute level_end: game_over would end the level with its first state"},
        {story("<State level_end='won'/>"), "State: attribute level_end: won is unknown"},
        {story(state(transition("lost", ship, 0, 0))),
         "Transition: attribute event: lost is unknown"},
        {story(state(transition("destroyed", "id='7' object='sun'", 0, 0))),
         "Transition: attribute object: sun is unknown"},
        {story(state(transition("destroyed", ship, 0, 1))),
         "Transition: attribute new_state: 1 is no state"},
        {story(state(transition("destroyed", ship, 0, -1))),
         "Transition: attribute new_state: -1 is no state"},
        {story("<Message id='3' text=''/>" + state(update)),
         "MessageUpdate: attribute message: 4 is no message"},
    };
    for (const auto& [text, message] : cases)
        EXPECT_EQ(failureOf([&, &xml = text] { StoryTeller::createInstance(yard.element(xml)); }),
                  "StoryTeller::StoryTeller: " + message);
    EXPECT_EQ(StoryTeller::getInstance(), nullptr);

    tell(state(update) + "<Message id='4' text='Hail'/>");
    std::ostringstream text;
    text << *StoryTeller::getInstance() << static_cast<ST_EVENTenum>(3);
    EXPECT_EQ(text.str(),
              "points : 0\nstate  : 0\nstates : \nlist of message updates:\n * object id  : 20487\n"
              " * message id : 4\nlist of transitions\nlevel end: 0\nmessages_by_id : \n"
              " * object id  : 20487\n * message id : 4\nmessages : \nMessageElement_t:\n"
              " * message ID : 4\n * text       : Hail\nERROR: invalid value");
}

TEST_F(StoryTest, ALevelHasOneStoryAndEndsItWithItself) {
    World::init(yard.element("<WorldSection><Universe id='2'><Galaxy id='1'" +
                             yard.galaxyElement().substr(7) + "</Universe></WorldSection>"),
                nullptr);
    const auto player = yard.ship("<UserControl/>");
    const auto load = [&](const std::string& children) {
        return failureOf([&] {
            Level(
                yard.element("<Level universe_id='2' start_galaxy='1' user_starship_up='V(1|0|0)' "
                             "user_starship_position='P(0|0|0)' "
                             "user_starship_orientation='V(0|0|1)'>" +
                             children + "</Level>"),
                player.get());
        });
    };
    const std::string once = "<StoryTeller/>";
    EXPECT_EQ(load(once + once),
              "storyTeller::createInstance: instance already set - delete instance first!");
    EXPECT_EQ(load(once + "<Epilogue/>"),
              "Level::Level: invalid game file (wrong node type: Epilogue)");
    EXPECT_EQ(load(once), "nothing thrown");
    EXPECT_EQ(load(""), "storyTeller::destroyInstance: instance not set - create instance first!");
    World::getInstance()->destroy();
}

// The ship is gone, and so is its slot, when the story ends the level.
TEST_F(StoryTest, LostShipsAreTold) {
    struct Space : Galaxy {
        using Galaxy::add, Galaxy::detectCollisions, Galaxy::Galaxy, Galaxy::update;
    } space(yard.element(yard.galaxyElement("<Planet id='1' name='' pos='P(0|0|90)' velocity='0'" +
                                            yard.body() + "/>" + ShipYard::shipElement())),
            nullptr);
    const ObjectSlot stranded = space.getObjectById(0x5003);
    (*stranded)->setPosition(Point4(0, 0, 90, 1));
    auto fading = std::make_unique<Probe>(0x5007);
    fading->deed = [] { throw StarshipFadedEvent(); };
    space.add(std::move(fading));
    const ObjectSlot faded = space.getObjectById(0x5007);

    tell(state(transition("destroyed", ship, 0, 1)) + end);
    EXPECT_THROW(space.update(0), LevelEndEvent);
    EXPECT_EQ(*faded, nullptr);
    StoryTeller::destroyInstance();
    tell(state(transition("destroyed", "object='starship' id='3'", 0, 1)) + end);
    EXPECT_THROW(space.detectCollisions(), LevelEndEvent);
    EXPECT_EQ(*stranded, nullptr);
}
