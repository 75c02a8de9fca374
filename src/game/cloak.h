#pragma once

#include "game/2d_mini_rep.h"
#include "game/2d_rep.h"
#include "game/starship_part.h"

class XMLElement;

/// Hides its ship from all radars of a lower category, at all times and at no cost. Nothing but a
/// radar looks at it.
class Cloak : public _StarshipPart, public _2D_Rep, public _2D_MiniRep {
public:
    /// Reads a "Cloak" element. Throws Exception on any other element.
    explicit Cloak(const XMLElement& node);

    unsigned int getCloakCat() const { return cloak_cat; }

    void drawMonitor(float x, float y, float w, float h, const ColorRGBA& fg, const ColorRGBA& bg,
                     const ColorRGBA& hl, DRWenum mode) const override;
    void drawMiniMonitor(float x, float y, float w, float h) const override;

private:
    unsigned int cloak_cat = 0;
};
