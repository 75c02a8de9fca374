#pragma once

#include "3d/font_factory.h"
#include "tests/support/ship_yard.h"

/// Loads the fonts of the landing screen.
inline void loadLandingFonts(ShipYard& yard) {
    FontFactory::getInstance()->load(
        yard.element("<Fonts><GlutFont name='helvetica_big' type='B_HELVETICA_18'/>"
                     "<GlutFont name='helvetica_medium' type='B_HELVETICA_12'/></Fonts>"));
}
