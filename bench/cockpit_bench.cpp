#include "3d/font_factory.h"
#include "game/camera_management.h"
#include "game/cockpit.h"
#include "game/control.h"
#include "game/galaxy.h"
#include "game/hull.h"
#include "game/mfd.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "tests/support/capture.h"
#include "tests/support/window.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <benchmark/benchmark.h>

#include <iostream>

// What the instruments cost in a frame of the shipped game, seen from the player's ship.

namespace {

class Scene : public Galaxy {
public:
    using Galaxy::add, Galaxy::Galaxy, Galaxy::show, Galaxy::update;
};

XMLElement findChild(const XMLElement& parent, const std::string& name) {
    XMLElement child = parent.getFirstChild();
    while (!child.isNull() && child.getName() != name) child = child.getNext();
    return child;
}

/// The shipped galaxy with the player's ship in it, and a target ahead of it.
class Flight {
public:
    Flight() {
        window();
        const XMLElement root = parser.getRootElement();
        FontFactory::getInstance()->load(findChild(root, "Fonts"));
        PartStore::getInstance()->load(findChild(root, "PartSection"));
        const XMLElement universe = findChild(findChild(root, "WorldSection"), "Universe");
        galaxy = std::make_unique<Scene>(findChild(universe, "Galaxy"), nullptr);
        player = addShip(root, 1000, Point4(0, 0, -100, 1));
        addShip(root, 1001, Point4(0, 0, 0, 1));
        CameraManagement::getInstance()->setPlayerObject(player);
        CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);
        SDL_Event select{};
        select.type = SDL_KEYDOWN;
        select.key.keysym.sym = SDLK_SPACE;
        player->getControl()->handleEvents(select);
        galaxy->update(0);
    }
    ~Flight() { PartStore::getInstance()->clear(); }
    Flight(const Flight&) = delete;
    Flight& operator=(const Flight&) = delete;

    Cockpit& getCockpit() const { return *player->getHull()->getCockpit(); }
    bool hasTarget() const { return player->getSelectedObject() != nullptr; }

    /// Frames without time in between: all of them show the same.
    void run(benchmark::State& state) const {
        for (auto _ : state) {
            galaxy->update(0);
            galaxy->show();
        }
    }

private:
    struct NumberedShip : Starship {
        NumberedShip(const XMLElement& node, int number) : Starship(node) {
            setId(number | GO_STARSHIP);
        }
    };

    Starship* addShip(const XMLElement& root, int number, const Point4& place) {
        auto ship = std::make_unique<NumberedShip>(findChild(root, "Starship"), number);
        ship->setPosition(place);
        Starship* added = ship.get();
        galaxy->add(std::move(ship));
        return added;
    }

    const Capture silence{std::cout};
    const Capture no_sound{std::cerr};
    XMLParser parser{"../data/game.xml"};
    std::unique_ptr<Scene> galaxy;
    Starship* player = nullptr;
};

void frameWithoutCockpit(benchmark::State& state) {
    const Flight flight;
    flight.getCockpit().setMode(CP_NORMAL);
    flight.getCockpit().getMFD(0)->clear();
    flight.run(state);
}
BENCHMARK(frameWithoutCockpit)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void frameWithEmptyDisplay(benchmark::State& state) {
    const Flight flight;
    flight.getCockpit().getMFD(0)->clear();
    flight.run(state);
}
BENCHMARK(frameWithEmptyDisplay)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void frameWithShieldPage(benchmark::State& state) {
    const Flight flight;
    flight.run(state);
}
BENCHMARK(frameWithShieldPage)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

void frameWithTargetPage(benchmark::State& state) {
    const Flight flight;
    flight.getCockpit().getMFD(0)->nextClient();
    if (!flight.hasTarget()) state.SkipWithError("no target");
    flight.run(state);
}
BENCHMARK(frameWithTargetPage)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// The instruments alone, on nothing.
void cockpitAlone(benchmark::State& state) {
    const Flight flight;
    flight.getCockpit().getMFD(0)->clear();
    for (auto _ : state) {
        flight.getCockpit().draw(DRAW_MULTITEX);
        glFinish();
    }
}
BENCHMARK(cockpitAlone)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

}  // namespace
