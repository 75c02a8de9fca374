#include "main/event.h"
#include "main/exception.h"
#include "main/game.h"
#include "main/log_factory.h"
#include "main/sdl_context.h"

#include <SDL.h>
#include <malloc.h>

#include <iostream>

namespace {

constexpr int window_width = 800;
constexpr int window_height = 600;

// A picture that large goes back to the system when it is freed. The allocator's own bound rises
// with what is freed, and the pictures of old skies would leave holes in the heap.
constexpr int large_block = 4 << 20;  // bytes

// The game lives exactly as long as this call: it is gone when a failure reaches the handlers.
void play() {
    logLine(std::cout, "MAIN: ", "initializing SDL...");
    SDLContext::init(SDL_INIT_VIDEO | SDL_INIT_AUDIO | SDL_INIT_JOYSTICK, window_width,
                     window_height);
    logLine(std::cout, "MAIN: ", "initializing game...");
    Game game("../data/game.xml");
    logLine(std::cout, "MAIN: ", "starting game...");
    game.start();
}

}  // namespace

int main() {
    mallopt(M_MMAP_THRESHOLD, large_block);
    try {
        play();
    } catch (const Exception& e) {
        std::cerr << "ERROR: " << e;
    } catch (const Event& e) {
        logLine(std::cerr, "ERROR: ", "Event: ", e.getMessage());
    } catch (...) {
        logLine(std::cerr, "ERROR: ", "unknown exception caught");
    }
    return 0;
}
