// What an author reads who checks a game file against its document type before starting the game.

#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

/// What xmllint has to say of a game file that lies beside the document type.
std::string check(const std::string& xml) {
    const TempDir dir;
    dir.write("game.dtd", readFile(TARVEX_SOURCE_DIR "/data/game.dtd"));
    const std::string file = dir.write("game.xml", xml), out = dir / "out";
    const int status = std::system(("xmllint --valid --noout " + file + " 2>" + out).c_str());
    EXPECT_EQ(status == 0, readFile(out).empty());
    return readFile(out);
}

}  // namespace

TEST(GameDtd, EachBreakIsNamedWithItsLine) {
    const std::string shipped = readFile(TARVEX_SOURCE_DIR "/data/game.xml");
    EXPECT_EQ(check(shipped), "");

    // What of the file is replaced, by what, and the end of the element that is to blame: where
    // there is none, the tag around the piece is.
    using Break = std::array<std::string, 3>;
    for (const auto& [piece, by, end] : {
             Break{"<IntroSection/>", "", "</TarvexGame>"},
             Break{"</TarvexGame>", "<Starship/></TarvexGame>", "</TarvexGame>"},
             Break{"<GlutFont name=", "<GlutFont label=", ""},
             Break{"\"B_HELVETICA_18\"", "\"B_HELVETICA_19\"", ""},
             Break{"<Character3D character=", "<Character2D character=", ""},
             Break{"</MenuConfig>", "<MenuButton/></MenuConfig>", "</MenuConfig>"},
             Break{"img_pressed=", "img_down=", ""},
             Break{"</StoryTeller>", "</StoryTeller><StoryTeller/>", "</Level>"},
             Break{"user_starship_up=", "up=", "</Level>"},
             Break{"event=\"destroyed\"", "event=\"lost\"", ""},
             Break{"object=\"planet\"", "object=\"moon\"", ""},
             Break{"level_end=\"finished\"", "level_end=\"won\"", ""},
             Break{"</Hull>", "<Cockpit crosshair_mask='' crosshair_color=''/></Hull>", "</Hull>"},
             Break{"<Cockpit ", "</Hull><Hull name=''><Cockpit ", "</Hull>"},
             Break{"mass=\"", "mass=\"about ", ""},
             Break{"type=\"Weapon\"", "type=\"Gun\"", ""},
             Break{"explosion_name=\"torpedo_explosion\"", "explosion_name=\"bang\"", ""},
             Break{"a_max=", "v_min=", ""},
             Break{" loss=\"", " loss=\"\" waste=\"", ""},
             Break{"alignement=", "alignment=", ""},
             Break{"direction=\"up\"", "direction=\"upwards\"", ""},
             Break{"<MFD ", "<MFD direction=\"up\" ", ""},
             Break{"<Speedometer ", "<Clock ", ""},
             Break{"<Universe id=\"1\"", "<Universe", "</Universe>"},
             Break{"<Planet ", "<UserControl/><Planet ", "</Galaxy>"},
             Break{" tank=", " fuel=", "</Starship>"},
             Break{"<UserControl/>", "<UserControl/><AIStaticControl/>", "</Starship>"},
             Break{"<CannonConfig ", "<WingConfig ", "</WingConfig>"},
             Break{"<AttackModule/>", "", "</AIControl>"},
             Break{"<NavEntry ", "<WayPoint ", ""},
         }) {
        const std::size_t at = shipped.find(piece);
        ASSERT_NE(at, std::string::npos) << piece;
        const std::string xml = std::string(shipped).replace(at, piece.size(), by);

        // A tag is named with the line that it ends in.
        const std::size_t tag = end.empty() ? xml.rfind('<', at) : xml.find(end, at);
        const auto line = 1 + std::count(xml.begin(), xml.begin() + xml.find('>', tag), '\n');
        EXPECT_THAT(check(xml), testing::HasSubstr(".xml:" + std::to_string(line) + ": ")) << piece;
    }
}
