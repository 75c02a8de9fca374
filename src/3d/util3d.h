#pragma once

#include "3d/vector.h"
#include "3d/vector2.h"

#include <numbers>
#include <ostream>

/// An undirected edge of a model: two vertices by index.
struct edge {
    int vertInd[2];

    /// The direction does not count.
    bool operator==(const edge& e) const {
        return (vertInd[0] == e.vertInd[0] && vertInd[1] == e.vertInd[1]) ||
               (vertInd[0] == e.vertInd[1] && vertInd[1] == e.vertInd[0]);
    }
};

/// Free helpers on angles and raw float triples. Angles are radians.
namespace util3d {

/// The angle between two vectors, in radians: in the three coordinate planes and in space.
struct angle_t {
    float xy;
    float yz;
    float xz;
    float total;
};

inline float deg2rad(float deg) {
    return std::numbers::pi_v<float> * deg / 180;
}
inline float rad2deg(float rad) {
    return 180 * rad / std::numbers::pi_v<float>;
}

/// NaN where rounding leaves the cosine outside of [-1, 1] or a vector has no length.
float angle(const Vector2& a, const Vector2& b);

/// `total` forgives rounding of the cosine by up to 0.05 and is NaN beyond it or where a vector
/// has no length. A plane in which a vector has no extent has no angle: its value is NaN.
angle_t angle(const Vector4& a, const Vector4& b);

/// Some direction at right angles to `v`; it has no length where `v` has none.
Vector4 perpendicular(const Vector4& v);

/// Turns three floats about the y axis. Throws Exception for a null pointer.
void rotateY(float* vec, float phi);

/// The unit normal of a triangle: a new array of three floats that the caller owns and frees
/// with delete[].
float* normalize(const float* v1, const float* v2, const float* v3);

/// Four lines in radians and degrees, the last one without a line end.
std::ostream& operator<<(std::ostream& out, const angle_t& angle);

}  // namespace util3d
