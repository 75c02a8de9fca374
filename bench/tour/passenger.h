#pragma once

#include <string>

/// Somebody who sits in the game's own process and looks around whenever a frame has been shown,
/// while the game waits. The program is the game's own, entry point and all: only the call that
/// shows a frame and the clock are the passenger's.
namespace passenger {

/// What the passenger does; begins with the game's first frame and has to be over before its last.
void ride();

/// Lets the game draw and show one frame. `time` is how many milliseconds that takes by the game's
/// clock, however long it takes by ours: a slow machine gives the same flight.
void ride(int time);

/// Whether the game has taken all keys that were typed.
bool isIdle();

/// Ends the program with one line that says why.
[[noreturn]] void fail(const std::string& why);

}  // namespace passenger
