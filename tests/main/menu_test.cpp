// Menus, worked by hand: real keys, a real mouse, and what is then on the screen.

#include "3d/light.h"
#include "game/background_model.h"
#include "main/checkbox.h"
#include "main/game_callbacks.h"
#include "main/menu_factory.h"
#include "main/menu_frame.h"
#include "tests/support/capture.h"
#include "tests/support/landing.h"
#include "tests/support/stage.h"
#include "tests/support/typist.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace std::string_literals;

namespace {

/// Controls with pictures of one colour, and the factory and the fonts of menus, there for all
/// tests.
class MenuLook {
public:
    MenuLook() {
        static bool known = false;
        if (std::exchange(known, true)) return;
        loadLandingFonts(yard);
        FontFactory::getInstance()->load(
            yard.element("<Fonts><Font3D name='3d_font_01'/></Fonts>"));
        MenuFactory::createInstance(yard.element("<MenuConfig background='C(0|0|0|0.5)'>" +
                                                 xml("MenuButton", 160, 36) + "</MenuConfig>"));
    }

    /// A control, 4 by 2 pixels.
    XMLElement element(const std::string& name) { return yard.element(xml(name, 4, 2)); }

private:
    std::string xml(const std::string& name, int w, int h) {
        std::string text = "<" + name + " width='" + std::to_string(w) + "' height='" +
                           std::to_string(h) + "' color='C(1|1|1|1)' font='helvetica_big'";
        for (const auto& [state, rgb] : {std::pair("deactivated"s, "\x60\x60\x60"),
                                         {"idle", "\x01\x01\xa0"},
                                         {"highlighted", "\x01\xa0\x01"},
                                         {"pressed", "\xa0\x01\x01"},
                                         {"checked_deactivated", "\x05\x05\x0a"},
                                         {"checked_idle", "\xa0\x01\x01"}})
            text += " img_" + state + "='" + dir.write(state, picture::ppm(1, 1, rgb)) + "'";
        return text + "/>";
    }

    const TempDir dir;
    ShipYard yard;
};

constexpr std::array<int, 3> grey = {96, 96, 96}, blue = {1, 1, 160}, red = {160, 1, 1},
                             dark = {5, 5, 10};

/// The main menu's first buttons (2 to 5, one below the other at the window's pixels x 400 to 560,
/// y 100 + 50 i to 136 + 50 i) and a box to tick (at 204 to 208, 298 to 300), worked by hand.
class WorkedMenu {
public:
    WorkedMenu() {
        const auto folder = std::filesystem::current_path();
        std::filesystem::current_path(TARVEX_SOURCE_DIR "/tests");  // the table is in ../data
        menu.setBackground(scene = new BackgroundModel(nullptr));
        std::filesystem::current_path(folder);
        for (const int i : {0, 1, 2, 3}) {
            auto* button = new Button(MenuFactory::getInstance()->getButton());
            button->setPosition(Point4(0, 164 - 50.F * static_cast<float>(i), 0, 1));
            button->setButtonListener(&callbacks);
            button->setId(static_cast<unsigned int>(i + 2));
            menu.addControl(button);
        }
        menu.addControl(box = new Checkbox(look.element("MenuCheckbox")));
        box->setPosition(Point4(-196, 0, 0, 1));
        window().enableEvents(SDL_KEYDOWN);
    }
    ~WorkedMenu() { window().disableEvents(SDL_KEYDOWN); }

    /// Which buttons acted, in order: "45".
    std::string work(const std::string& words, MCRESULTenum end) {
        const Capture log(std::cout);
        const Typist typist(words);
        EXPECT_EQ(menu.run(), end) << words;
        const std::string text = log.text(), press = "!! MAIN(4): button ";
        std::string acted;
        for (size_t at = 0; (at = text.find(press, at)) != std::string::npos;)
            acted += text[at += press.size()];
        return acted;
    }

    BackgroundModel* scene;
    Checkbox* box;

private:
    const Capture errors{std::cerr};  // about the title, whose font has no letters here
    MenuLook look;
    GameCallbacks callbacks;
    MenuFrame menu;
};

}  // namespace

TEST(Menu, KeysAndMouseWorkTheControls) {
    WorkedMenu menu;
    const struct {
        const char* words;
        const char* acted;
        MCRESULTenum end;
    } cases[] = {
        {"Return", "2", MC_MENU_EXIT},
        {"Escape", "", MC_MENU_EXIT},
        {"Down Return", "3", MC_APP_EXIT},
        {"Right KP_Add Down Return Up Return", "54", MC_MENU_EXIT},
        {"Up minus Return KP_Subtract Left Left Left Down Return", "52", MC_MENU_EXIT},
        {"480,170 press 700,20 release", "3", MC_APP_EXIT},
        {"400,200 press 560,236 release Return", "44", MC_MENU_EXIT},
        {"399,210 press release 561,210 press release 480,237 press release", "", MC_MENU_EXIT},
        {"480,220 press Down release Return", "44", MC_MENU_EXIT},
        {"700,20 press release Return", "2", MC_MENU_EXIT},
    };
    for (const auto& [words, acted, end] : cases) EXPECT_EQ(menu.work(words, end), acted) << words;
    EXPECT_EQ(SDL_ShowCursor(-1), 0);
    EXPECT_EQ(SDL_EventState(SDL_MOUSEBUTTONUP, SDL_QUERY), SDL_IGNORE);

    menu.work("206,299 press", MC_MENU_EXIT);
    EXPECT_TRUE(menu.box->getChecked()) << "ticked by the press";
    menu.work("release 206,299 press release Return", MC_MENU_EXIT);
    EXPECT_TRUE(menu.box->getChecked()) << "cleared and, by its focus, ticked again";
}

TEST(Menu, LettersMoveTheLampUnlessAltIsHeld) {
    WorkedMenu menu;
    menu.work("x x y v v v c n n n n b alt+n alt+b alt+b alt+c alt+c", MC_MENU_EXIT);
    EXPECT_EQ(menu.scene->getLight()->getPosition(), Point4(1, 27, 3, 1));
    EXPECT_NE(menu.scene->getAngle(), 0);
}

// What buttons in use look like is seen in a whole game.
TEST(MenuControl, ShowsItsState) {
    MenuLook look;
    const Stage stage;
    Button button(look.element("MenuButton"));
    Checkbox box(look.element("MenuCheckbox"));
    const auto shows = [&](const _MenuControl& shown) {
        stage.clear();
        shown.drawControl(DRAW_TEXTURE);
        return stage.at(3.9, 1.9);
    };
    EXPECT_EQ(shows(box), blue);
    box.setChecked(true);
    EXPECT_EQ(shows(box), red);
    box.deactivate();
    EXPECT_EQ(box.handleMouseDown(Point4(3, 2, 0, 1)), MC_NOT_HANDELED);
    EXPECT_EQ(shows(box), dark);

    button.deactivate();
    button.setHighlighted(true);
    EXPECT_EQ(button.handleMouseDown(Point4(1, 1, 0, 1)), MC_NOT_HANDELED);
    EXPECT_EQ(shows(button), grey);
    button.activate();
    button.handleMouseDown(Point4(4, 2, 0, 1));
    EXPECT_EQ(shows(Button(button)), red);
}
