#pragma once

#include <SDL.h>

/// What waits in the queue of input events.
namespace events {

inline void push(Uint8 type, int count = 1, SDLKey key = SDLK_UNKNOWN) {
    SDL_Event event{};
    event.type = type;
    if (type == SDL_KEYDOWN) event.key.keysym.sym = key;
    for (; count > 0; --count) SDL_PushEvent(&event);
}

/// Empties the queue and tells how many key presses were left in it.
inline int flush() {
    int count = 0;
    for (SDL_Event event; SDL_PollEvent(&event);) count += event.type == SDL_KEYDOWN;
    return count;
}

}  // namespace events
