#pragma once

#include <string>

/// Picture files as a program outside would write them: pixels from the top row down, packed.
namespace picture {

/// The low and the high byte of each number.
inline std::string words(std::initializer_list<int> numbers) {
    std::string bytes;
    for (int n : numbers) bytes += {static_cast<char>(n & 0xff), static_cast<char>(n >> 8)};
    return bytes;
}

/// Red, green, blue.
inline std::string ppm(int w, int h, const std::string& rgb) {
    return "P6\n" + std::to_string(w) + " " + std::to_string(h) + "\n255\n" + rgb;
}

/// Blue, green, red and, with 32 bits a pixel, alpha.
inline std::string tga(int w, int h, int bits, const std::string& bgr) {
    return words({0, 2, 0, 0, 0, 0, w, h, bits | (bits == 32 ? 0x2800 : 0x2000)}) + bgr;
}

}  // namespace picture
