#include "main/event.h"
#include "main/exception.h"
#include "main/game.h"
#include "main/log_factory.h"
#include "main/sdl_context.h"

#include <SDL.h>

#include <iostream>

namespace {

constexpr int window_width = 800;
constexpr int window_height = 600;

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
    try {
        play();
    } catch (Exception e) {
        std::cerr << "ERROR: " << e;
    } catch (Event e) {
        logLine(std::cerr, "ERROR: ", "Event: ", e.getMessage());
    } catch (...) {
        logLine(std::cerr, "ERROR: ", "unknown exception caught");
    }
    return 0;
}
