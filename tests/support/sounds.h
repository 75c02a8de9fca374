#pragma once

#include "tests/support/picture.h"

#include <string>

/// Wave files as a program outside would write them.
namespace sounds {

/// A tenth of a second at a constant level, up to 32767: how loud it is heard can be read off.
inline std::string wave(int level, int channels = 1, int rate = 22050) {
    constexpr int frames = 2205;
    const auto number = [](int n) { return picture::words({n & 0xffff, n >> 16}); };
    std::string samples;
    for (int i = 0; i < frames; ++i) samples += picture::words({level});
    return "RIFF" + number(36 + 2 * frames) + "WAVEfmt " + number(16) +
           picture::words({1, channels}) + number(rate) + number(rate * channels * 2) +
           picture::words({channels * 2, 16}) + "data" + number(2 * frames) + samples;
}

}  // namespace sounds
