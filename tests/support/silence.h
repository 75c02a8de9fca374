#pragma once

#include <iostream>

/// Nothing is printed while it lives, and nothing is kept of it.
struct Silence {
    Silence() { std::cout.setstate(std::ios::failbit); }
    ~Silence() { std::cout.clear(); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
};
