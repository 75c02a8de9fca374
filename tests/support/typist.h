#pragma once

#include "tests/support/screen.h"

#include <SDL.h>

#include <functional>
#include <sstream>
#include <string>
#include <thread>

/// A hand at the keyboard and the mouse, while the test itself runs what it works. When all is
/// typed, waits until the test has seen `enough`, touching Shift now and then, and types Esc until
/// it is stopped.
class Typist {
public:
    /// Keys by the names that xdotool has for them. In between, "400,300" moves the pointer to that
    /// pixel of the screen, "press" and "release" work the mouse button.
    explicit Typist(
        const std::string& words, std::function<bool()> enough = [] { return true; })
        : hand([words, enough](const std::stop_token& stopped) {
              SDL_Delay(400);
              std::istringstream list(words);
              for (std::string word; list >> word;) act(word);
              for (int tries = 0; !enough() && tries < 200; ++tries) act("Shift_L");
              while (!stopped.stop_requested()) act("Escape");
          }) {}

private:
    static void act(std::string word) {
        const size_t comma = word.find(',');
        if (word == "press" || word == "release")
            screen::act(word == "press" ? "mousedown 1" : "mouseup 1");
        else if (comma == std::string::npos)
            screen::act("key " + word);
        else
            screen::act("mousemove " + word.replace(comma, 1, " "));
        SDL_Delay(100);
    }

    std::jthread hand;
};
