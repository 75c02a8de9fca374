// What an author sees of a broken game file: the real program, one clear line, status 0.

#include "tests/support/game_run.h"
#include "tests/support/tiny_game.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

struct BadGame {
    const char* piece;  // of the game file, replaced by...
    const char* by;
    const char* message;  // what the error line says
};

std::string lastLine(const std::string& text) {
    const size_t end = text.find_last_not_of('\n');
    if (end == std::string::npos) return "";
    const size_t start = text.rfind('\n', end);
    return text.substr(start + 1, end - start);
}

void expectFailure(const TinyGame& game, const std::string& message, const std::string& what) {
    GameRun run(game.getDirectory());
    EXPECT_EQ(run.wait(), 0) << what << run.err();
    const std::string err = run.err();
    EXPECT_EQ(lastLine(err), "ERROR: Exception: " + message) << what << '\n' << err;
    EXPECT_EQ(run.err().find("Exception: "), run.err().rfind("Exception: ")) << what;
}

}  // namespace

TEST(BadGame, EachMissingSectionIsNamed) {
    const std::pair<const char*, const char*> sections[] = {
        {"TarvexGame", "Game::Game: invalid game file (root node)"},
        {"Fonts", "Game::Game: no fonts section in ../data/game.xml"},
        {"MenuConfig", "Game::Game: no menu configuration section in ../data/game.xml"},
        {"LevelSection", "Game::Game: no level section in ../data/game.xml"},
        {"IntroSection", "Game::Game: no intro section in ../data/game.xml"},
        {"PartSection", "Game::Game: no part section in ../data/game.xml"},
        {"WorldSection", "Game::Game: no world section in ../data/game.xml"},
        {"Starship", "Game::Game: no user starship in ../data/game.xml"},
    };
    for (const auto& [name, message] : sections)
        expectFailure(TinyGame().rename(name, "Other"), message, name);
}

TEST(BadGame, EachFaultOfTheGameFileIsOneLine) {
    const BadGame cases[] = {
        {"</TarvexGame>", "", "An unknown fatal error occured during parsing."},
        {"<!DOCTYPE Game>", "", "XMLElement::getFirstChild: node is empty"},
        {"type='B_HELVETICA_18'", "type='B_HELVETICA_19'",
         "GlutFont::GlutFont: No such font (B_HELVETICA_19)"},
        {"background='C(0|0|0|0.5)'", "", "no such attribute: background"},
        {"font='helvetica_big'", "font='gothic'", "FontFactory::getFont: no such font (gothic)"},
        {"height='36'", "height='-1'", "MenuButton: attribute height is below 0"},
        {"img_pressed='../data/menu/pressed.png'", "img_pressed='../data/menu/none.png'",
         "Image::Image: Error loading image ../data/menu/none.png!"},
        {"<MenuButton ", "<Other ", "MenuFactory::MenuFactory: no MenuButton in MenuConfig"},
        {"  </MenuConfig>",
         "<MenuButton width='1' height='1' color='C(1|1|1|1)' font='helvetica_big'/></MenuConfig>",
         "MenuFactory::MenuFactory: button already created"},
        {"<StoryTeller/>", "<Prologue/>",
         "Level::Level: invalid game file (wrong node type: Prologue)"},
        {"user_starship_up='V(0|1|0)'", "", "no such attribute: user_starship_up"},
        {"universe_id='1'", "universe_id='2'",
         "World::getUniverse: Universe doesn't exist (wrong id)"},
        {"<IntroSection/>\n  <PartSection>", "<IntroSection/>\n  <PartSection><Anchor name='a'/>",
         "Partstore::load: unknown part (Anchor)"},
        {"<Slot type='Wing' trans_offset='P(-2|0|0)'/>", "", "_3D_Rep: invalid slot"},
        {"type='Weapon' trans_offset='P(0|0|2)'", "type='Pylon' trans_offset='P(0|0|2)'",
         "Wing::Wing: unknown slot type (Pylon)"},
        {"reactor='reactor'", "reactor='fusor'", "PartStore::getPart: no such part (fusor)"},
        {"reactor='reactor'", "reactor='tank'", "PartStore::getReactor: tank is not a reactor"},
        {"<UserControl/>", "<Autopilot/>",
         "Starship::Starship: invalid XML subobject for hull (Autopilot)"},
        {"pos='P(0|0|400)'", "pos='V(0|0|400)'",
         "XMLElement::getAttribute as Point: V(0|0|400) can't be converted to a Point (not "
         "starting with P or p)"},
        {"velocity='0'", "velocity='fast'",
         "XMLElement::getAttributeAsDouble: attribute velocity: fast can't be converted to double"},
        {"space_bg_size='4000'", "space_bg_size='wide'",
         "XMLElement::getAttributeAsLong: attribute space_bg_size: wide can't be converted to an "
         "integer number"},
        {"../data/sky.png", "../data/fog.png", "SpaceBG::SpaceBG: could not create material"},
        {"rep3d='../data/box.ASE' pos", "rep3d='../data/ball.ASE' pos",
         "AseObject::AseObject: cannot open file for reading (../data/ball.ASE)"},
    };
    for (const auto& [piece, by, message] : cases)
        expectFailure(TinyGame().replace(piece, by), message, piece);
}

TEST(BadGame, AnExplosionLacksItsLastPicture) {
    const std::string last = "../data/tarvex_explosion/explosion0100.png";
    TinyGame game;
    game.write("build/" + last, "");
    expectFailure(game, "Image::Image: Error loading image " + last + '!', last);
}

TEST(BadGame, TheTableOfTheMenuLacksItsPicture) {
    TinyGame game;
    game.write("data/balticgreen.jpg", "");
    expectFailure(game, "Image::Image: Error loading image ../data/balticgreen.jpg!", "table");
}

TEST(BadGame, NoGameFileAtAll) {
    const TinyGame game;
    std::filesystem::remove(game.getDirectory() + "/../data/game.xml");
    expectFailure(game, "An unknown fatal error occured during parsing.", "no file");
}
