#include "3d/font_factory.h"
#include "game/galaxy.h"
#include "game/level.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "game/world.h"
#include "tests/support/capture.h"
#include "tests/support/files.h"
#include "tests/support/shipped_game.h"
#include "tests/support/sprites.h"
#include "xml/xml_parser.h"

#include <SDL_image.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace fs = std::filesystem;

namespace {

const fs::path data = TARVEX_SOURCE_DIR "/data";

struct Sky : Galaxy {
    using Galaxy::detectCollisions, Galaxy::Galaxy, Galaxy::receive, Galaxy::update;
};

/// Adds the files of the data set that another file names, and what they name in their turn.
void addNamed(const fs::path& file, std::set<std::string>& named) {
    const std::string text = readFile(file), start = "../data/";
    for (auto at = text.find(start); at != std::string::npos; at = text.find(start, at)) {
        at += start.size();
        const std::string name = text.substr(at, text.find('"', at) - at);
        const auto star = name.find('*');
        for (int i = 0; star != std::string::npos && i < sprites::explosion_frames; ++i)
            named.insert(std::string(name).replace(star, 1, std::to_string(10000 + i).substr(1)));
        if (star == std::string::npos && named.insert(name).second) addNamed(data / name, named);
    }
}

}  // namespace

// Everything loads, and every level is flown for a while, without a word of complaint and without
// the loss of a ship: patrols keep clear of planets and of each other.
TEST(ShippedData, LoadsWholeAndFlies) {
    constexpr int frame = 20, flight = 10000;  // milliseconds
    sprites::registerExplosions();
    const ShippedGame shipped;
    const auto before = fs::current_path();
    fs::current_path(shipped.getDirectory());
    const Capture progress(std::cout), complaints(std::cerr);
    const XMLParser parser("../data/game.xml");
    std::map<std::string, XMLElement> sections;
    for (auto e = parser.getRootElement().getFirstChild(); !e.isNull(); e = e.getNext())
        sections.insert_or_assign(e.getName(), e);
    FontFactory::getInstance()->load(sections.at("Fonts"));
    PartStore::getInstance()->load(sections.at("PartSection"));
    World::init(sections.at("WorldSection"), nullptr);
    Starship player(sections.at("Starship"));
    auto universe = sections.at("WorldSection").getFirstChild();
    for (auto e = sections.at("LevelSection").getFirstChild(); !e.isNull(); e = e.getNext()) {
        const Level level(e, &player);
        Sky sky(universe.getFirstChild(), nullptr);
        sky.receive(&player);
        const auto ships = sky.getObjects();
        for (int time = 0; time < flight; time += frame, sky.detectCollisions()) sky.update(frame);
        for (const auto& [id, slot] : ships) EXPECT_TRUE(*slot) << id;
        universe = universe.getNext();
    }
    World::getInstance()->destroy();
    PartStore::getInstance()->clear();
    fs::current_path(before);
    EXPECT_EQ(complaints.text(), "");
}

// No file is missing, none is left over, and textures take the pictures as they are.
TEST(ShippedData, HoldsWhatIsNamedAndNothingElse) {
    std::set<std::string> named = {"LICENSE", "game.dtd"}, there;
    for (const auto& source : fs::recursive_directory_iterator(TARVEX_SOURCE_DIR "/src"))
        if (source.path().extension() == ".cpp") addNamed(source, named);
    std::uintmax_t size = 0;
    for (const auto& file : fs::recursive_directory_iterator(data)) {
        if (!file.is_regular_file()) continue;
        const std::string name = *there.insert(fs::relative(file, data)).first;
        size += file.file_size();
        if (!name.ends_with("g")) continue;
        SDL_Surface* p = IMG_Load(file.path().c_str());
        ASSERT_TRUE(p) << name;
        EXPECT_EQ((p->w & (p->w - 1)) | (p->h & (p->h - 1)), 0) << name << ": no powers of two";
        EXPECT_GE(p->format->BytesPerPixel, 3) << name;
        SDL_FreeSurface(p);
    }
    EXPECT_EQ(there, named);
    EXPECT_LT(size, 24'000'000U);
}
