#pragma once

#include <string>
#include <vector>

/// What a person sees of the game's window and does to it, through the display server.
namespace screen {

/// The rows of the 800 by 600 window from top to bottom, three bytes a pixel: red, green, blue.
using Picture = std::vector<unsigned char>;

Picture capture();
/// The share of pixels, 0 to 1, that differ clearly between two pictures.
double difference(const Picture& a, const Picture& b);

/// Presses and releases a key, named as xdotool names it: "w", "F3", "alt+Return".
void press(const std::string& key);
/// Presses the mouse button at a pixel of the window, until release().
void hold(int x, int y);
void release();
void click(int x, int y);
/// Asks the window to close, as the button of a window manager does.
void closeWindow();

}  // namespace screen
