#pragma once

#include "game/drawable.h"

#include <string>

class ColorRGB;

/// A font under its name in the game file. Flat fonts write at a raster position, fonts of models
/// write into the scene.
class _Font {
public:
    virtual ~_Font() = default;

    /// Width and height of a character in the font's own unit; 0 when that is not fixed.
    virtual float getCharWidth(char c) const = 0;
    virtual float getCharHeight(char c) const = 0;

    /// Writes at the current position.
    virtual void write(const std::string& text, DRWenum mode) const;
    /// Writes at the given position in colour `c`, which the font frees; null is white.
    virtual void write(float x, float y, const std::string& text, ColorRGB* c, DRWenum mode) const;
    virtual void write(float x, float y, float z, const std::string& text, ColorRGB* c,
                       DRWenum mode) const;

    void setName(const std::string& n) { name = n; }
    const std::string& getName() const { return name; }

protected:
    virtual void drawChar(char c, DRWenum mode) const = 0;

private:
    std::string name = "no name";
};
