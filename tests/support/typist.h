#pragma once

#include <sys/types.h>

#include <string>

/// A hand at the keyboard and the mouse, in a process of its own. Types Esc at the end, until it is
/// stopped.
class Typist {
public:
    /// Keys by the names that xdotool has for them. In between, "400,300" moves the pointer to that
    /// pixel of the screen, "press" and "release" work the mouse button.
    explicit Typist(const std::string& words);
    ~Typist();
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

private:
    pid_t pid;
};
