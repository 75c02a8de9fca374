#pragma once

#include "3d/font.h"

#include <map>
#include <memory>
#include <string>

class AseObject;
class BoundingBox;
class XMLElement;

/// A font of 3D models, one for each character, drawn in the scene with their own materials and
/// lighting. The game's title is written in one.
class AseFont : public _Font {
public:
    /// Reads a "Font3D" element and loads the model of each "Character3D" in it.
    /// Throws Exception on any other element and when a model cannot be loaded.
    explicit AseFont(const XMLElement& node);
    ~AseFont() override;

    /// Half the extent of the character's model; -1 for a character without one.
    float getCharWidth(char c) const override;
    float getCharHeight(char c) const override;

    /// Writes from the current origin along x; a line feed starts a new line below.
    void write(const std::string& text, DRWenum mode) const override;
    /// The same, moved. The colour is freed unused: the models bring their own.
    void write(float x, float y, const std::string& text, ColorRGB* c, DRWenum mode) const override;
    void write(float x, float y, float z, const std::string& text, ColorRGB* c,
               DRWenum mode) const override;

protected:
    void drawChar(char c, DRWenum mode) const override;

private:
    void addCharacter(const XMLElement& node);
    /// The model of a character; null, and reported, when there is none.
    const AseObject* findLetter(char c) const;
    const BoundingBox* findBox(char c) const;

    std::map<char, std::unique_ptr<AseObject>> letters;
};
