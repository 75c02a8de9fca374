#pragma once

#include <cstdlib>

/// A number from the C library's generator: at least 0 and below 1.
inline double randomFraction() {
    return rand() / 2147483648.0;
}

/// Comes true in that share of all draws.
inline bool comesTrue(double chance) {
    return randomFraction() <= chance;
}
