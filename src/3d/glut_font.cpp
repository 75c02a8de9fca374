#include "3d/glut_font.h"

#include "3d/glut.h"
#include "main/exception.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct Type {
    std::string_view name;
    void* font;
    int width;  // 0 for a proportional font
    int height;
};

const Type types[] = {
    {"S_ROMAN", GLUT_STROKE_ROMAN, 0, 0},
    {"S_MONO_ROMAN", GLUT_STROKE_MONO_ROMAN, 0, 0},
    {"B_9_BY_15", GLUT_BITMAP_9_BY_15, 9, 15},
    {"B_8_BY_13", GLUT_BITMAP_8_BY_13, 8, 13},
    {"B_TIMES_ROMAN_10", GLUT_BITMAP_TIMES_ROMAN_10, 0, 10},
    {"B_TIMES_ROMAN_24", GLUT_BITMAP_TIMES_ROMAN_24, 0, 24},
    {"B_HELVETICA_10", GLUT_BITMAP_HELVETICA_10, 0, 10},
    {"B_HELVETICA_12", GLUT_BITMAP_HELVETICA_12, 0, 12},
    {"B_HELVETICA_18", GLUT_BITMAP_HELVETICA_18, 0, 18},
};

}  // namespace

GlutFont::GlutFont(const XMLElement& node) {
    if (node.getName() != "GlutFont") {
        throw Exception("GlutFont::GlutFont: wrong node type (" + node.getName() + ")");
    }
    setup(node.getAttributeAsString("type"), node.getAttributeAsString("name"));
}

GlutFont::GlutFont(const std::string& type, const std::string& name) {
    setup(type, name);
}

void GlutFont::setup(const std::string& type, const std::string& name) {
    const auto* known = std::find_if(std::begin(types), std::end(types),
                                     [&](const Type& t) { return t.name == type; });
    if (known == std::end(types)) {
        throw Exception("GlutFont::GlutFont: No such font (" + type + ")");
    }
    initGlut();
    setName(name);
    font = known->font;
    width = known->width;
    height = known->height;
}

void GlutFont::drawChar(char c, DRWenum) const {
    glutBitmapCharacter(font, static_cast<unsigned char>(c));
}
