#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

/// What a person sees of the game's window, which fills the upper left of the screen, and does to
/// it, through the display server.
namespace screen {

/// Red, green and blue.
using Colour = std::array<unsigned char, 3>;
constexpr size_t width = 800, height = 600;

/// The pixels of the window, row by row from the top.
using Picture = std::vector<Colour>;

Picture capture();
/// The share of pixels, 0 to 1, that differ clearly between two pictures.
double difference(const Picture& a, const Picture& b);

/// Does what xdotool has words for: "key alt+Return", "mousemove 400 300 mousedown 1".
inline void act(const std::string& words) {
    EXPECT_EQ(std::system(("xdotool " + words).c_str()), 0) << words;
}
/// Asks the window in front to close, as the button of a window manager does.
void closeWindow();

}  // namespace screen
