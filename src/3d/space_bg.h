#pragma once

#include "3d/display_lists.h"
#include "3d/material.h"
#include "game/drawable.h"

#include <memory>
#include <string>

/// The sky of a galaxy: a box of stars that moves along with the camera, so that nobody ever comes
/// nearer to it. Its galaxy owns it and draws it first in the frame: it leaves no depth behind, and
/// everything else is drawn over it.
class SpaceBG : public _Drawable {
public:
    /// A box with edges of length `s`. The picture holds the six faces in three columns and two
    /// rows, whose borders stand at 0.33 and 0.66 of its width. Throws Exception when the picture
    /// cannot be loaded.
    SpaceBG(float s, const std::string& texture);
    /// Frees the picture, the largest of a level, unless something else shows it too.
    ~SpaceBG() override;
    SpaceBG(const SpaceBG&) = delete;
    SpaceBG& operator=(const SpaceBG&) = delete;

    /// Draws the box around the current camera, textured or as lines, as the mode asks.
    void draw(DRWenum mode) const override;

private:
    void initDisplayList(DRWenum mode) const;
    void drawFaces() const;

    float size;
    std::unique_ptr<Material> mat;
    DisplayLists displayList;  // one list for each draw mode
};
