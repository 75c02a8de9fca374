#include "3d/font_factory.h"
#include "game/background_model.h"
#include "game/hull.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "main/menu_factory.h"
#include "main/menu_frame.h"
#include "tests/support/capture.h"
#include "tests/support/window.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <benchmark/benchmark.h>

#include <iostream>
#include <memory>
#include <utility>

// What one frame of the main menu costs, with the shipped ship, table, letters and buttons.

namespace {

constexpr int frames = 20;  // of one stay in the menu

/// A button that closes the window when it has been drawn in so many frames.
class ClosingButton : public Button {
public:
    explicit ClosingButton(const Button& other) : Button(other) {}

    void drawControl(DRWenum mode) const override {
        Button::drawControl(mode);
        if (++drawn % frames != 0) return;
        SDL_Event close{};
        close.type = SDL_QUIT;
        SDL_PushEvent(&close);
    }

private:
    mutable int drawn = 0;
};

class MainMenu {
public:
    MainMenu() {
        constexpr int buttons = 5;
        const XMLElement root = parser.getRootElement();
        loadLook(root);
        PartStore::getInstance()->load(find(root, "PartSection"));
        player = std::make_unique<Starship>(find(root, "Starship"));
        menu.setBackground(new BackgroundModel(player->getHull()));
        for (int i = 0; i < buttons - 1; ++i)
            menu.addControl(new Button(MenuFactory::getInstance()->getButton()));
        menu.addControl(new ClosingButton(MenuFactory::getInstance()->getButton()));
    }

    MenuFrame menu;

private:
    static XMLElement find(const XMLElement& parent, const std::string& name) {
        XMLElement child = parent.getFirstChild();
        while (!child.isNull() && child.getName() != name) child = child.getNext();
        return child;
    }

    /// Once for all menus: the buttons hold on to their font.
    static void loadLook(const XMLElement& root) {
        static bool loaded = false;
        if (std::exchange(loaded, true)) return;
        FontFactory::getInstance()->load(find(root, "Fonts"));
        MenuFactory::createInstance(find(root, "MenuConfig"));
    }

    XMLParser parser{"../data/game.xml"};
    std::unique_ptr<Starship> player;
};

void menuFrame(benchmark::State& state) {
    window();
    const Capture silence(std::cout);
    MainMenu shown;
    while (state.KeepRunningBatch(frames)) shown.menu.run();
}
BENCHMARK(menuFrame)->Unit(benchmark::kMillisecond);

/// The same without the ship and its table: what panel, title and buttons take.
void menuFrameWithoutModel(benchmark::State& state) {
    window();
    const Capture silence(std::cout);
    MainMenu shown;
    shown.menu.setBackground(nullptr);
    while (state.KeepRunningBatch(frames)) shown.menu.run();
}
BENCHMARK(menuFrameWithoutModel)->Unit(benchmark::kMillisecond);

}  // namespace
