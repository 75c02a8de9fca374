#include "3d/ase_font.h"

#include "3d/ase_object.h"
#include "3d/bounding_box.h"
#include "3d/color_rgb.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "xml/xml_element.h"

#include <GL/gl.h>

#include <iostream>

namespace {

// Models have their origins in their middles: half a width leads to the next one's middle, and a
// little more than half to its far side.
constexpr float step_after = 1.2f;  // of half a width
constexpr float blank_width = 1;
constexpr float line_height = 1.2f;

constexpr float no_size = -1;  // of a character without a model

}  // namespace

AseFont::AseFont(const XMLElement& node) {
    if (node.getName() != "Font3D") throw Exception("AseFont::AseFont: wrong node type");
    setName(node.getAttributeAsString("name"));
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        addCharacter(child);
    }
}

AseFont::~AseFont() = default;

void AseFont::addCharacter(const XMLElement& node) {
    if (node.getName() != "Character3D") {
        logLine(std::cerr, "ERROR (3D): ", "AseFont::AseFont: wrong node type");
        return;
    }
    const std::string character = node.getAttributeAsString("character");
    if (character.size() != 1) {
        logLine(std::cerr, "WARNING (3D): ", "AseFont::AseFont: strange character node (\"",
                character, "\")");
    }
    if (character.empty()) return;

    std::unique_ptr<AseObject>& letter = letters[character.front()];
    if (letter) {
        logLine(std::cerr, "WARNING (3D): ", "AseFont::AseFont: duplicate character (\"",
                character.front(), "\")");
    }
    letter = std::make_unique<AseObject>(node.getAttributeAsString("file"), MTL_TEX_ONLY,
                                         BOUNDING_BOX, false);
}

const AseObject* AseFont::findLetter(char c) const {
    const auto found = letters.find(c);
    if (found != letters.end()) return found->second.get();
    logLine(std::cerr, "ERROR (3D): ", "AseFont::drawChar: no such character (\"", c, "\")");
    return nullptr;
}

void AseFont::drawChar(char c, DRWenum mode) const {
    if (const AseObject* letter = findLetter(c)) letter->draw(mode);
}

const BoundingBox* AseFont::findBox(char c) const {
    const AseObject* letter = findLetter(c);
    if (!letter) return nullptr;
    const auto* box = dynamic_cast<const BoundingBox*>(letter->getBoundingObject());
    if (!box) {
        logLine(std::cerr,
                "ERROR (3D): ", "AseFont::getCharWidth: must use bounding boxes for characters");
    }
    return box;
}

float AseFont::getCharWidth(char c) const {
    const BoundingBox* box = findBox(c);
    return box ? box->getVX() : no_size;
}

float AseFont::getCharHeight(char c) const {
    const BoundingBox* box = findBox(c);
    return box ? box->getVY() : no_size;
}

void AseFont::write(const std::string& text, DRWenum mode) const {
    glPushMatrix();
    for (const char c : text) {
        if (c == '\n') {
            glPopMatrix();
            glTranslatef(0, -line_height, 0);
            glPushMatrix();
        } else if (c == ' ') {
            glTranslatef(blank_width, 0, 0);
        } else {
            glTranslatef(getCharWidth(c), 0, 0);
            drawChar(c, mode);
            glTranslatef(getCharWidth(c) * step_after, 0, 0);
        }
    }
    glPopMatrix();
}

void AseFont::write(float x, float y, const std::string& text, ColorRGB* c, DRWenum mode) const {
    write(x, y, 0, text, c, mode);
}

void AseFont::write(float x, float y, float z, const std::string& text, ColorRGB* c,
                    DRWenum mode) const {
    const std::unique_ptr<ColorRGB> unused(c);
    glPushMatrix();
    glTranslatef(x, y, z);
    write(text, mode);
    glPopMatrix();
}
