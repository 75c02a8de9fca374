#include "3d/font_factory.h"

#include "3d/ase_font.h"
#include "3d/color_rgb.h"
#include "3d/glut_font.h"
#include "tests/support/models.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <memory>

using testing::ElementsAre;

namespace {

class Fonts : public Models {
protected:
    /// The element of that text; it lives as long as the test.
    XMLElement element(const std::string& text) {
        const std::string file = dir.write("font.xml", "<!DOCTYPE x>" + text);
        return documents.emplace_back(std::make_unique<XMLParser>(file))->getRootElement();
    }

    /// A flat bar, 2 units wide and 0.4 high, as the given character.
    std::string bar(const std::string& character) const {
        AseText text{.vertices = ""};
        for (const char* at : {"-1 0 -.2", "1 0 -.2", "1 0 .2", "-1 0 .2"})
            text.vertices += text.vertex(at);
        text.faces = text.face(0, 1, 2) + text.face(0, 2, 3);
        return "<Character3D character='" + character + "' file='" +
               dir.write("bar.ASE", text.toString()) + "'/>";
    }

    /// Where a row of the stage begins and ceases to be drawn, in tenths of units.
    std::vector<int> edges(double y) const {
        std::vector<int> found;
        for (int x = -79; x < 79; ++x)
            if (stage.at(x / 10. - 0.04, y) != stage.at(x / 10. + 0.06, y)) found.push_back(x);
        return found;
    }

    std::vector<std::unique_ptr<XMLParser>> documents;
};

}  // namespace

// Half a width before the middle of a model and 1.2 halves behind; a blank is one unit.
TEST_F(Fonts, ModelsStandSideBySide) {
    const Capture log(std::cerr);
    const AseFont font(
        element("<Font3D name=''><X/>" + bar("AC") + bar("") + bar("A") + "</Font3D>"));
    font.write(-5, 2, "AA A\nA", new ColorRGB(1, 0, 0), DRAW_FLAT);
    EXPECT_THAT(edges(2), ElementsAre(-50, -30, -28, -8, 4, 24));
    EXPECT_THAT(edges(0.8), ElementsAre(-50, -30));
    stage.clear();
    font.write(0, 0, 0, "CA", nullptr, DRAW_FLAT);
    EXPECT_THAT(edges(0), ElementsAre(-22, -2)) << "the pen steps back";
    const std::string missing = "ERROR (3D): AseFont::drawChar: no such character (\"C\")\n";
    EXPECT_EQ(log.text(),
              "ERROR (3D): AseFont::AseFont: wrong node type\n"
              "WARNING (3D): AseFont::AseFont: strange character node (\"AC\")\n"
              "WARNING (3D): AseFont::AseFont: strange character node (\"\")\n"
              "WARNING (3D): AseFont::AseFont: duplicate character (\"A\")\n" +
                  missing + missing + missing);
}

// Flat text shows its own colour, whatever was lit or textured before it.
TEST_F(Fonts, FlatTextHasItsColour) {
    const GlutFont font("B_9_BY_15", "plain");
    glEnable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    font.write(0, 0, "ll", new ColorRGB(0, 1, 0), DRAW_TEXTURE);
    font.write(4, 0, 0, "l", nullptr, DRAW_TEXTURE);
    constexpr double stroke = 4.5 / 50, advance = 9. / 50;  // pixels
    EXPECT_THAT(stage.at(stroke, 0.1), ElementsAre(0, 255, 0));
    EXPECT_THAT(stage.at(stroke + advance, 0.1), ElementsAre(0, 255, 0)) << "the pen moves on";
    EXPECT_THAT(stage.at(4 + stroke, 0.1), ElementsAre(255, 255, 255));
    GlutFont("S_ROMAN", "strokes").write("\xc3\xa9\n\x01", DRAW_FLAT);
}

TEST_F(Fonts, FactoryKeepsThemByName) {
    FontFactory* factory = FontFactory::getInstance();
    const Capture log(std::cerr);
    const std::string one = "<Fonts><GlutFont name='one' type='B_8_BY_13'/><Bitmap/>";
    const std::string two = "<Font3D name='two'/><GlutFont name='one' type='B_HELVETICA_18'/>";
    EXPECT_EQ(factory->load(element(one + two + "</Fonts>")), 4);
    EXPECT_EQ(log.text(), "ERROR (3D): FontFactory::load: unknown font type (Bitmap)\n");
    EXPECT_FLOAT_EQ(factory->getFont("one")->getCharHeight('x'), 18) << "the later one";
    EXPECT_EQ(failureOf([] { GlutFont("B_9_BY_16", ""); }),
              "GlutFont::GlutFont: No such font (B_9_BY_16)");
}
