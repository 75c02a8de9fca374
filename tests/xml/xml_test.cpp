#include "3d/color_rgba.h"
#include "3d/point.h"
#include "3d/vector.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/temp_dir.h"
#include "xml/xml_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <iostream>
#include <map>

namespace {

using E = XMLElement;
using WrongText = XMLWrongAttributeTypeException;

/// What a getter makes of an attribute "a" with the given text.
template <typename... Base>
auto read(auto getter, const std::string& text, Base... base) {
    const TempDir dir;
    const std::string head = "<?xml version='1.0' encoding='ISO-8859-1'?><!DOCTYPE A>";
    const XMLParser parser(dir.write("game.xml", head + "<A a='" + text + "'/>"));
    return (parser.getRootElement().*getter)("a", base...);
}

TEST(XMLElement, NavigationSeesElementsAlone) {
    const TempDir dir;
    const XMLParser parser(dir.write(
        "game.xml", "<!DOCTYPE A><A>text<!-- --><B>only <!-- --></B> <?go on?><C/>\n</A>"));
    const XMLElement b = parser.getRootElement().getFirstChild(), c = b.getNext();
    EXPECT_EQ(b.getName() + c.getName() + c.getPrevious().getName(), "BCB");
    for (const auto& none : {b.getFirstChild(), c.getNext(), b.getPrevious()})
        EXPECT_THROW(none.getName(), XMLNoSuchElementException);
}

TEST(XMLElement, TextsAreReadFromTheFront) {
    EXPECT_EQ(read(&E::getAttributeAsString, "gr\xfcn"), "grün");
    EXPECT_EQ(read(&E::getAttributeAsInt, "12abc", 10), 12);
    EXPECT_EQ(read(&E::getAttributeAsInt, "4294967296", 10), INT_MAX);
    EXPECT_EQ(read(&E::getAttributeAsFloat, " 0.1km"), 0.1f);
    EXPECT_EQ(read(&E::getAttributeAsPoint, "P(1|2.5|-3)"), Point4(1, 2.5f, -3, 1));
    EXPECT_EQ(read(&E::getAttributeAsVector, "v( 1| 2|3|9)"), Vector4(1, 2, 3, 1));
    EXPECT_FLOAT_EQ(read(&E::getAttributeAsDirection, "V(3e38|0|-3e38)").z, -std::sqrt(0.5f));
    EXPECT_EQ(read(&E::getAttributeAsColor, "c(1|1|0|.25)").getAlpha(), 0.25f);
}

TEST(XMLElement, WrongTextsAreRefused) {
    for (const char* text : {"x1", "", "nan", "-inf", "1e999", "1e39"})
        EXPECT_THROW(read(&E::getAttributeAsFloat, text), WrongText) << text;
    EXPECT_THROW(read(&E::getAttributeAsInt, "", 10), WrongText);
    EXPECT_THROW(read(&E::getAttributeAsVector, "v(1|2)"), WrongText);
    EXPECT_THROW(read(&E::getAttributeAsColor, "C(1|1|1)"), WrongText);

    // The author of the file is told what is wrong with a text.
    const std::string inner = "XMLElement::convertQuadrupel: ";
    for (const auto& [text, reason] : std::map<std::string, std::string>{
             {"V(1|2|3)", "not starting with P or p"},
             {"P(", inner + "can't convert ( to a quadruple"},
             {"P(1||3)", inner + "(1||3) wrong format"},
             {"p(1|b|3)", inner + "b can't be converted to double"},
             {"P(1|2|inf)", inner + "inf can't be converted to double"}})
        EXPECT_EQ(failureOf([&, &text = text] { read(&E::getAttributeAsPoint, text); }),
                  "XMLElement::getAttribute as Point: " + text +
                      " can't be converted to a Point (" + reason + ")");
}

// The root is the second node of the document, whatever the first one is.
TEST(XMLParser, RootStandsBehindOneOtherNode) {
    const TempDir dir;
    const XMLParser good(dir.write("game.xml", "<?xml version='1.0'?>\n<!-- note -->\n<A/>"));
    EXPECT_EQ(good.getRootElement().getName(), "A");
    EXPECT_TRUE(XMLParser(dir.write("game.xml", "<A/>")).getRootElement().isNull());
}

TEST(XMLParser, BrokenFilesAreRefused) {
    const TempDir dir;
    const XMLParser living(dir.write("good.xml", "<!DOCTYPE A><A/>"));
    std::string bomb = "<!DOCTYPE A [<!ENTITY a 'b'>]><A>";
    for (int i = 0; i < 2000; ++i) bomb += "&a;";
    for (const auto& [content, reason] : std::map<std::string, std::string>{
             {"<!DOCTYPE A>\n<A>\n  <B>\n</A>", "game.xml, line 4, column 3: "},
             {"", "line 1, column 1: "},
             {std::string("\0\1\2\3PNG\xff", 8), "line 1, "},
             {"<!DOCTYPE A [<!ENTITY a SYSTEM '/dev/null'>]><A>&a;</A>", "external entity"},
             {bomb + "</A>", "limit"}}) {
        const Capture err(std::cerr);
        EXPECT_EQ(failureOf([&, &content = content] { XMLParser(dir.write("game.xml", content)); }),
                  "An unknown fatal error occured during parsing.");
        EXPECT_THAT(err.text(), AllOf(testing::StartsWith("ERROR: "), testing::HasSubstr(reason)));
    }
    EXPECT_EQ(failureOf([&] { XMLParser(dir.write("x", "<?xml version='1.7'?><A/>")); }),
              "A fatal DOM error occured during parsing (9).");
    EXPECT_EQ(living.getRootElement().getName(), "A") << "the library still runs";
}

}  // namespace
