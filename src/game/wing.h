#pragma once

#include "game/3d_rep.h"
#include "game/starship_part.h"

/// A part of the body that is nothing but a model with slots.
class Wing : public _StarshipPart, public _3D_Rep {
protected:
    friend class PartStore;

    /// Reads a "Wing" element: body and slots. Throws Exception on any other.
    explicit Wing(const XMLElement& node);
    Wing(const Wing& other) = default;
};
