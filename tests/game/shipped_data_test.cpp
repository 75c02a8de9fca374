#include "3d/font_factory.h"
#include "game/galaxy.h"
#include "game/level.h"
#include "game/part_store.h"
#include "game/starship.h"
#include "game/world.h"
#include "tests/support/capture.h"
#include "tests/support/shipped_game.h"
#include "tests/support/window.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <gtest/gtest.h>

#include <map>

// Every part, model, picture and font of the shipped game, and every level of it, loads without a
// word of complaint.
TEST(ShippedData, LoadsWhole) {
    window();
    const ShippedGame shipped;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(shipped.getDirectory());
    const Capture progress(std::cout);
    const Capture complaints(std::cerr);
    {
        const XMLParser parser("../data/game.xml");
        std::map<std::string, XMLElement> sections;
        const XMLElement root = parser.getRootElement();
        for (XMLElement child = root.getFirstChild(); !child.isNull(); child = child.getNext())
            sections.insert_or_assign(child.getName(), child);
        FontFactory::getInstance()->load(sections.at("Fonts"));
        PartStore::getInstance()->load(sections.at("PartSection"));
        World::init(sections.at("WorldSection"), nullptr);
        Starship player(sections.at("Starship"));

        int levels = 0;
        for (XMLElement node = sections.at("LevelSection").getFirstChild(); !node.isNull();
             node = node.getNext(), ++levels)
            EXPECT_NO_THROW(Level(node, &player)) << "level " << levels;
        EXPECT_GT(levels, 0);
        World::getInstance()->destroy();
    }
    PartStore::getInstance()->clear();
    std::filesystem::current_path(before);
    EXPECT_EQ(complaints.text(), "");
}
