#include "main/sdl_context.h"

#include "3d/camera.h"
#include "3d/opengl.h"
#include "tests/support/capture.h"
#include "tests/support/joystick.h"
#include "tests/support/window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <iostream>

namespace {

constexpr Uint8 marker = SDL_USEREVENT;

/// The type of the next event that the game gets, SDL_NOEVENT if there is none.
int nextEvent() {
    SDL_Event event = {};
    return window().pollEvent(event) ? int(event.type) : int(SDL_NOEVENT);
}

/// Puts one event and a marker behind it into an empty queue.
void queue(SDL_Event event) {
    while (nextEvent() != SDL_NOEVENT) {
    }
    SDL_PushEvent(&event);
    event.type = marker;
    SDL_PushEvent(&event);
}

int press(SDLKey key, int modifiers) {
    SDL_Event event = {.key = {SDL_KEYDOWN, 0, SDL_PRESSED, {0, key, SDLMod(modifiers), 0}}};
    queue(event);
    return nextEvent();
}

}  // namespace

// A command is swallowed and works on every frame from then on. Further modifiers and the right Alt
// key make an ordinary key of it.
TEST(EventFilter, AltLettersChangeHowFramesAreDrawn) {
    window();
    const OpenGLContext& gl = *OpenGLContext::getInstance();
    for (int modifiers : {int(KMOD_NONE), int(KMOD_RALT), KMOD_LALT | KMOD_LSHIFT})
        for (const SDLKey key : {SDLK_w, SDLK_c, SDLK_b, SDLK_RETURN})
            EXPECT_EQ(press(key, modifiers), SDL_KEYDOWN) << key << " with " << modifiers;
    for (int mode = DRAW_WIRE; mode <= DRAW_MULTITEX; ++mode) {
        EXPECT_EQ(press(std::array{SDLK_w, SDLK_f, SDLK_p, SDLK_t, SDLK_n}[mode], KMOD_LALT),
                  marker);
        EXPECT_EQ(gl.getDrawMode(), mode);
    }
    for (const bool on : {false, true}) {
        for (const SDLKey key : {SDLK_c, SDLK_b, SDLK_l}) EXPECT_EQ(press(key, KMOD_LALT), marker);
        EXPECT_TRUE(gl.isShowFPS() == on && gl.isBlending() == on && gl.isLighting() == on);
    }
}

// Full screen and back; the rest of the queue waits for the next poll.
TEST(EventFilter, AltReturnEndsThePoll) {
    for (const bool full : {true, false}) {
        EXPECT_EQ(press(SDLK_RETURN, KMOD_LALT), SDL_NOEVENT);
        EXPECT_EQ((SDL_GetVideoSurface()->flags & SDL_FULLSCREEN) != 0, full);
        EXPECT_EQ(nextEvent(), marker);
    }
}

TEST(EventFilter, ResizeReachesViewportAndCamera) {
    window();
    Camera camera;
    OpenGLContext::getInstance()->setCurrentCamera(&camera);
    for (auto [w, h] : {std::pair(640, 320), {800, 600}}) {
        queue({.resize = {SDL_VIDEORESIZE, w, h}});
        EXPECT_EQ(nextEvent(), SDL_VIDEOEXPOSE);
        EXPECT_EQ(SDL_GetVideoSurface()->h, h);
        std::array<GLint, 4> viewport;
        glGetIntegerv(GL_VIEWPORT, viewport.data());
        EXPECT_EQ(viewport, (std::array{0, 0, w, h}));
        const Matrix4 projection(MATRIX_GL_PROJECTION);
        EXPECT_FLOAT_EQ(projection.m[1][1] / projection.m[0][0], window().getAspectRatio());
    }
}

// SDL drops its queue when an event type is switched, the layer over SDL 2 nothing; the player's
// wish to leave survives, once.
TEST(EventFilter, SwitchingEventsKeepsAWindowClose) {
    for (auto change : {&SDLContext::disableEvents, &SDLContext::enableEvents}) {
        queue({.type = SDL_QUIT});
        (window().*change)(SDL_MOUSEMOTION);
        int event = nextEvent();
        if (event == marker) event = nextEvent();
        EXPECT_EQ(event, SDL_QUIT);
        EXPECT_EQ(nextEvent(), SDL_NOEVENT);
    }
}

namespace {

/// Starts up and leaves; standard error tells what came of it.
[[noreturn]] void startUp(bool joystick_opens) {
    PluggedJoystick device;
    device.can_open = joystick_opens;
    const Capture log(std::cout);
    SDLContext::init(SDL_INIT_JOYSTICK, 320, 200);
    if (SDLContext::getInstance()->getJoystick()) std::cerr << log.text();
    std::_Exit(0);
}

}  // namespace

// Each case runs in a fresh process, since there is only one context in the life of a program.
TEST(SDLContextStart, OpensWhatItFinds) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto leaves = testing::ExitedWithCode(0);
    EXPECT_EXIT(startUp(true), leaves,
                testing::Eq("SDL: found 1 joystick(s)\nSDL: using joystick 0: Test Stick\n"));
    EXPECT_EXIT(startUp(false), leaves, testing::Eq("ERROR (SDL): cannot open joystick 0\n"));
}
