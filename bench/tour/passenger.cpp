#include "bench/tour/passenger.h"

#include "tests/support/capture.h"

#include <GL/glx.h>
#include <SDL.h>
#include <dlfcn.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <semaphore>
#include <string>
#include <thread>

namespace {

// What a busy fight may say: a sound found no channel free.
const std::string no_channel =
    "ERROR (AUDIO): SoundFactory::playPanoramaSound: Invalid channel number\n";

constexpr std::chrono::seconds longest_frame(100);  // the first of a level comes after its loading

std::atomic<Uint32> now = 0;  // milliseconds on the game's clock
std::atomic<bool> is_over = false;
bool is_idle = true;
std::binary_semaphore shown(0), seen(0);

/// The passenger's own thread. It and the game run in turn, never at once.
class Seat {
public:
    ~Seat() {
        failOnErrors();
        if (!is_over) passenger::fail("the game ended before the tour");
        passenger.join();
    }

    void frameIsShown() {
        if (is_over) return;
        SDL_PumpEvents();
        SDL_Event waiting;
        is_idle = SDL_PeepEvents(&waiting, 1, SDL_PEEKEVENT, SDL_KEYEVENTMASK) == 0;
        failOnErrors();
        shown.release();
        seen.acquire();
    }

private:
    void failOnErrors() const {
        std::string said = errors.text();
        for (size_t at = said.find(no_channel); at != std::string::npos; at = said.find(no_channel))
            said.erase(at, no_channel.size());
        if (!said.empty()) passenger::fail("the game says " + said);
    }

    const Capture errors{std::cerr};
    std::thread passenger{[] {
        shown.acquire();
        passenger::ride();
        is_over = true;
        seen.release();
    }};
};

}  // namespace

void passenger::ride(int time) {
    now += static_cast<Uint32>(time);
    seen.release();
    if (!shown.try_acquire_for(longest_frame)) fail("no frame for so long");
}

bool passenger::isIdle() {
    return is_idle;
}

void passenger::fail(const std::string& why) {
    std::fprintf(stderr, "tour: %s\n", why.c_str());
    std::_Exit(EXIT_FAILURE);
}

Uint32 SDL_GetTicks() {
    return now;
}

void SDL_GL_SwapBuffers() {
    static const auto swap = reinterpret_cast<void (*)()>(dlsym(RTLD_NEXT, "SDL_GL_SwapBuffers"));
    static Seat seat;
    swap();
    XSync(glXGetCurrentDisplay(), False);  // on the screen by now
    seat.frameIsShown();
}
