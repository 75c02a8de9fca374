// What an author sees of a broken game file: the real program, one clear line, status 0.

#include "tests/support/game_run.h"
#include "tests/support/tiny_game.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

void expectFailure(const TinyGame& game, const std::string& message) {
    GameRun run(game.getDirectory());
    EXPECT_EQ(run.wait(), 0) << message;
    const std::string err = run.err(), line = "ERROR: Exception: " + message + '\n';
    EXPECT_TRUE(err.ends_with(line)) << err << "\ninstead of\n" << line;
    EXPECT_EQ(err.find("Exception: "), err.rfind("Exception: ")) << err;
}

}  // namespace

TEST(BadGame, EachMissingSectionIsNamed) {
    const std::pair<std::string, std::string> sections[] = {
        {"Fonts", "fonts section"},        {"MenuConfig", "menu configuration section"},
        {"LevelSection", "level section"}, {"IntroSection", "intro section"},
        {"PartSection", "part section"},   {"WorldSection", "world section"},
        {"Starship", "user starship"},     {"TarvexGame", ""},
    };
    for (const auto& [name, what] : sections) {
        TinyGame game;
        std::string xml = game.getXml();
        for (const std::string& tag : {"<" + name, "</" + name})
            for (size_t at = 0; (at = xml.find(tag, at)) != std::string::npos;)
                xml.insert(at + tag.size() - name.size(), "Other");
        game.write("data/game.xml", xml);
        expectFailure(game, what.empty() ? "Game::Game: invalid game file (root node)"
                                         : "Game::Game: no " + what + " in ../data/game.xml");
    }
}

TEST(BadGame, EachFaultIsOneLine) {
    const struct {
        const char* piece;  // of the game file, replaced by...
        const char* by;
        const char* message;  // what the error line says
    } cases[] = {
        {"</TarvexGame>", "", "An unknown fatal error occured during parsing."},
        {"<!DOCTYPE Game>", "", "XMLElement::getFirstChild: node is empty"},
        {"font='helvetica_big'", "font='gothic'", "FontFactory::getFont: no such font (gothic)"},
        {"height='36'", "height='-1'", "MenuButton: attribute height is below 0"},
        {"<MenuButton ", "<Other ", "MenuFactory::MenuFactory: no MenuButton in MenuConfig"},
        {"  </MenuConfig>",
         "<MenuButton width='1' height='1' color='C(1|1|1|1)' font='helvetica_big'/></MenuConfig>",
         "MenuFactory::MenuFactory: button already created"},
        {"universe_id='1'", "universe_id='2'",
         "World::getUniverse: Universe doesn't exist (wrong id)"},
        {"rep3d='../data/box.ASE' pos", "rep3d='../data/ball.ASE' pos",
         "AseObject::AseObject: cannot open file for reading (../data/ball.ASE)"},
    };
    for (const auto& [piece, by, message] : cases)
        expectFailure(TinyGame().replace(piece, by), message);

    for (const std::string file :
         {"../data/tarvex_explosion/explosion0100.png", "../data/balticgreen.jpg"})
        expectFailure(TinyGame().write("build/" + file, ""),
                      "Image::Image: Error loading image " + file + '!');
    const TinyGame nothing;
    std::filesystem::remove(nothing.getDirectory() + "/../data/game.xml");
    expectFailure(nothing, "An unknown fatal error occured during parsing.");
}
