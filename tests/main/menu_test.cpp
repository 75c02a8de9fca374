// Menus, worked by hand: real keys, a real mouse, and what is then on the screen.

#include "3d/font_factory.h"
#include "3d/light.h"
#include "3d/opengl.h"
#include "game/background_model.h"
#include "main/checkbox.h"
#include "main/game_callbacks.h"
#include "main/menu_factory.h"
#include "main/menu_frame.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/stage.h"
#include "tests/support/tiny_game.h"
#include "tests/support/typist.h"
#include "xml/xml_parser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace {

const std::string pictures =
    " img_deactivated='../data/menu/deactivated.png' img_idle='../data/menu/idle.png'"
    " img_highlighted='../data/menu/highlighted.png' img_pressed='../data/menu/pressed.png'"
    " img_checked_deactivated='../data/sky.png' img_checked_idle='../data/menu/pressed.png'";

std::string control(const std::string& element) {
    return "<" + element + " width='4' height='2' color='C(1|1|1|1)' font='helvetica_big'" +
           pictures + "/>";
}

/// The look of menus as the tiny game has it, there for all tests.
class MenuLook {
public:
    MenuLook() : before(std::filesystem::current_path()) {
        std::filesystem::current_path(tiny.getDirectory());
        window();
        if (!failureOf([] { MenuFactory::getInstance(); }).starts_with("MenuFactory::")) return;
        const XMLElement fonts = root("../data/game.xml").getFirstChild();
        FontFactory::getInstance()->load(fonts);
        MenuFactory::createInstance(fonts.getNext());
    }
    ~MenuLook() { std::filesystem::current_path(before); }
    MenuLook(const MenuLook&) = delete;
    MenuLook& operator=(const MenuLook&) = delete;

    XMLElement element(const std::string& xml) {
        tiny.write("data/element.xml", "<!DOCTYPE Game><Game>" + xml + "</Game>");
        return root("../data/element.xml").getFirstChild();
    }

private:
    XMLElement root(const std::string& file) {
        documents.push_back(std::make_unique<XMLParser>(file));
        return documents.back()->getRootElement();
    }

    TinyGame tiny;
    std::filesystem::path before;
    std::vector<std::unique_ptr<XMLParser>> documents;
};

constexpr std::array<int, 3> grey = {96, 96, 96}, blue = {1, 1, 160}, green = {1, 160, 1},
                             red = {160, 1, 1}, dark = {5, 5, 10};

/// The main menu's first buttons (2 to 5, one below the other at the window's pixels x 400 to 560,
/// y 100 + 50 i to 136 + 50 i) and a box to tick (at 204 to 208, 298 to 300), worked by hand.
class WorkedMenu {
public:
    WorkedMenu() {
        {
            const Capture warning(std::cerr);
            menu.setBackground(scene = new BackgroundModel(nullptr));
        }
        for (const int i : {0, 1, 2, 3}) {
            auto* button = new Button(MenuFactory::getInstance()->getButton());
            button->setPosition(Point4(0, 164 - 50.F * static_cast<float>(i), 0, 1));
            button->setButtonListener(&callbacks);
            button->setId(static_cast<unsigned int>(i + 2));
            menu.addControl(button);
        }
        menu.addControl(box = new Checkbox(look.element(control("MenuCheckbox"))));
        box->setPosition(Point4(-196, 0, 0, 1));
        window().enableEvents(SDL_KEYDOWN);
    }
    ~WorkedMenu() { window().disableEvents(SDL_KEYDOWN); }
    WorkedMenu(const WorkedMenu&) = delete;
    WorkedMenu& operator=(const WorkedMenu&) = delete;

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
        {"Up Down Return", "2", MC_MENU_EXIT},
        {"480,170 press 700,20 release", "3", MC_APP_EXIT},
        {"400,200 press release Return", "44", MC_MENU_EXIT},
        {"560,236 press release", "4", MC_MENU_EXIT},
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
    OpenGLContext* gl = OpenGLContext::getInstance();
    menu.work("x x y v v v c n n n n b alt+n alt+b alt+c alt+w", MC_MENU_EXIT);
    EXPECT_EQ(menu.scene->getLight()->getPosition(), Point4(1, 27, 3, 1));
    EXPECT_GT(menu.scene->getAngle(), 30) << "one second at least";
    EXPECT_FALSE(gl->isBlending());
    EXPECT_EQ(gl->getDrawMode(), DRAW_WIRE);
    gl->setBlending(true);
    gl->setShowFPS(true);
    gl->setDrawMode(DRAW_MULTITEX);
}

TEST(MenuControl, ShowsItsState) {
    MenuLook look;
    const Stage stage;
    Button button(look.element(control("MenuButton")));
    Checkbox box(look.element(control("MenuCheckbox")));
    const auto shows = [&](const _MenuControl& shown, double x, double y) {
        stage.clear();
        shown.drawControl(DRAW_TEXTURE);
        return stage.at(x, y);
    };
    button.deactivate();
    button.setHighlighted(true);
    EXPECT_EQ(button.handleMouseDown(Point4(1, 1, 0, 1)), MC_NOT_HANDELED);
    EXPECT_EQ(shows(button, 0.1, 0.1), grey);
    button.activate();
    EXPECT_EQ(shows(button, 3.9, 1.9), blue);
    button.setHighlighted(true);
    EXPECT_EQ(shows(button, 1, 1), green);
    button.handleMouseDown(Point4(4, 2, 0, 1));
    button.setHighlighted(false);
    EXPECT_EQ(shows(Button(button), 1, 1), red);

    EXPECT_EQ(shows(box, 1, 1), blue);
    box.setChecked(true);
    EXPECT_EQ(shows(box, 3.9, 1.9), red);
    box.deactivate();
    EXPECT_EQ(box.handleMouseDown(Point4(3, 2, 0, 1)), MC_NOT_HANDELED);
    EXPECT_EQ(shows(box, 1, 1), dark);
}

TEST(MenuControl, FaultyElementsAreNamed) {
    MenuLook look;
    const std::pair<std::function<void()>, const char*> faults[] = {
        {[&] { Button(look.element(control("MenuSlider"))); },
         "_MenuControl::_MenuControl: wrong XML node type (MenuSlider)"},
        {[&] { Button(look.element(control("MenuScrollBar"))); },
         "MenuButton::MenuButton: wrong XML node type (MenuScrollBar)"},
        {[&] { Checkbox(look.element(control("MenuButton"))); },
         "Checkbox::Checkbox: wrong XML node type (MenuButton)"},
        {[&] { MenuFactory::createInstance(look.element("<MenuConfig/>")); },
         "MenuFactory::createInstance: MenuFactory already exists"},
        {[] { MenuFrame().run(); }, "MenuFrame::run: no controls"},
    };
    for (const auto& [build, message] : faults) EXPECT_EQ(failureOf(build), message);
}
