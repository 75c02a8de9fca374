#pragma once

#include "3d/point.h"
#include "3d/vector.h"

#include <gmock/gmock.h>

#include <cmath>

/// Compares the four coordinates of a vector or point and forgives rounding.
MATCHER_P4(IsNear, x, y, z, w, "") {
    const auto close = [](float a, float b) { return std::fabs(a - b) <= 1e-5f; };
    return close(arg.x, x) && close(arg.y, y) && close(arg.z, z) && close(arg.w, w);
}

/// The same, against another vector or point.
MATCHER_P(IsNear, other, "") {
    return testing::Matches(IsNear(other.x, other.y, other.z, other.w))(arg);
}

/// A direction and a place with the ordinary `w`.
inline Vector4 direction(float x, float y, float z) {
    return {x, y, z, 1};
}
inline Point4 place(float x, float y, float z) {
    return {x, y, z, 1};
}
