#pragma once

#include "3d/font.h"

#include <string>

class XMLElement;

/// A bitmap font of GLUT: all flat text of the game. Sizes are pixels.
class GlutFont : public _Font {
public:
    /// Reads a "GlutFont" element. Throws Exception on any other element and on an unknown type.
    explicit GlutFont(const XMLElement& node);
    GlutFont(const std::string& type, const std::string& name);

    /// The width is 0 for a proportional font.
    float getCharWidth(char) const override { return static_cast<float>(width); }
    float getCharHeight(char) const override { return static_cast<float>(height); }

protected:
    void drawChar(char c, DRWenum mode) const override;

private:
    void setup(const std::string& type, const std::string& name);

    void* font = nullptr;  // GLUT's handle
    int width = 0;
    int height = 0;
};
