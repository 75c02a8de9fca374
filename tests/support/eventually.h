#pragma once

#include <SDL.h>

#include <chrono>

/// Waits for what is to come some time soon, and tells whether it did.
template <typename Condition>
bool eventually(Condition condition, std::chrono::seconds allowed = std::chrono::seconds(60)) {
    const auto deadline = std::chrono::steady_clock::now() + allowed;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        SDL_Delay(20);
    }
    return true;
}
