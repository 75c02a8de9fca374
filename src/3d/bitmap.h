#pragma once

#include "3d/color_rgba.h"

#include <GL/gl.h>

#include <memory>
#include <ostream>
#include <string>

/// A one-bit mask from a ".bw" file, drawn at a raster position: a set bit draws a pixel, a clear
/// bit leaves it alone. The cockpit uses masks as crosshair and as the outlines of its controls.
/// Made and shared by the bitmap factory; a copy has a colour of its own and shares the mask.
class Bitmap {
public:
    /// Changes the colour for all who share this object; copy it first for a private colour.
    void setColor(const ColorRGBA& c) { color = c; }

    const std::string& getName() const { return file; }
    int getHeight() const { return height; }
    int getWidth() const { return width; }

    /// Draws with the lower left corner at (x, y), or at the current raster position if one of them
    /// is negative. A negative `z` ignores what stands in front. Without `colored` the mask takes
    /// the colour of the raster position. Leaves lighting off.
    void draw(int x, int y, int z, bool colored) const;

private:
    friend class BitmapFactory;
    friend std::ostream& operator<<(std::ostream& out, const Bitmap& b);

    /// A compiled display list, freed with its last holder.
    class List;

    /// `invert` complements the mask. Throws Exception when the file cannot be opened or claims a
    /// size that no mask has; bits that the file lacks stay clear.
    Bitmap(const std::string& fn, const ColorRGBA& c, bool invert);

    std::string file;
    int height = 0;
    int width = 0;
    std::shared_ptr<const List> gllist;
    ColorRGBA color;
};

/// Writes "Bitmap: ", the file name and the size.
std::ostream& operator<<(std::ostream& out, const Bitmap& b);
