#pragma once

#include "3d/vector.h"

#include <string>

class XMLElement;

/// Which way something looks and where its top is: two directions of length 1 at right angles.
struct facing_t {
    Vector4 orientation, up;
};

/// Reads a facing from two attributes. The up vector is turned to a right angle within the plane of
/// the two. Throws Exception when one has no length or both lie on one line.
facing_t readFacing(const XMLElement& node, const std::string& orientation, const std::string& up);
