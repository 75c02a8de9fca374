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

#include <array>
#include <ctime>
#include <iostream>
#include <utility>

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

    /// A frame without time before it: all of them show the same.
    void frame() const {
        galaxy->update(0);
        galaxy->show();
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

/// What the player sees of the instruments.
enum Seat { NO_COCKPIT, EMPTY_DISPLAY, SHIELD_PAGE, TARGET_PAGE };

/// The seats take turns, frame by frame, so that all of them see the same machine. Time is that of
/// the process in all its threads, since the renderer has several.
void frames(benchmark::State& state) {
    const Flight flight;
    if (!flight.hasTarget()) state.SkipWithError("no target");
    Cockpit& cockpit = flight.getCockpit();
    Mfd& display = *cockpit.getMFD(0);
    _2D_Rep* shield = display.getCurrent();
    display.nextClient();
    _2D_Rep* target = display.getCurrent();
    const auto take = [&](Seat seat) {
        cockpit.setMode(seat == NO_COCKPIT ? CP_NORMAL : CP_FULLSCREEN);
        display.clear();
        if (seat == SHIELD_PAGE) display.addClient(shield);
        if (seat == TARGET_PAGE) display.addClient(target);
    };

    std::array<double, 4> times{};
    for (auto _ : state)
        for (const Seat seat : {NO_COCKPIT, EMPTY_DISPLAY, SHIELD_PAGE, TARGET_PAGE}) {
            take(seat);
            const std::clock_t start = std::clock();
            flight.frame();
            glFinish();
            times[seat] += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        }
    for (const auto& [seat, name] : {std::pair(NO_COCKPIT, "none"),
                                     {EMPTY_DISPLAY, "empty"},
                                     {SHIELD_PAGE, "shield"},
                                     {TARGET_PAGE, "target"}})
        state.counters[name] = 1000 * times[seat] / static_cast<double>(state.iterations());
}
BENCHMARK(frames)->Unit(benchmark::kMillisecond)->Iterations(40);

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
