#include "main/sdl_context.h"

#include "3d/image.h"
#include "3d/opengl.h"
#include "audio/audio_factory.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>

SDLContext* SDLContext::instance = nullptr;

namespace {

constexpr Uint32 frame_rate_interval = 2000;  // milliseconds
constexpr int every_channel = -1;

struct GLAttribute {
    SDL_GLattr attribute;
    int value;
};

constexpr GLAttribute gl_attributes[] = {
    {SDL_GL_RED_SIZE, 8},    {SDL_GL_GREEN_SIZE, 8},   {SDL_GL_BLUE_SIZE, 8},
    {SDL_GL_DEPTH_SIZE, 16}, {SDL_GL_DOUBLEBUFFER, 1}, {SDL_GL_STENCIL_SIZE, 8},
};

/// A letter that, with the left Alt key held, changes how every following frame is drawn.
struct DrawCommand {
    SDLKey key;
    void (*run)(OpenGLContext& gl);
};

constexpr DrawCommand draw_commands[] = {
    {SDLK_c, [](OpenGLContext& gl) { gl.setShowFPS(!gl.isShowFPS()); }},
    {SDLK_b, [](OpenGLContext& gl) { gl.setBlending(!gl.isBlending()); }},
    {SDLK_l, [](OpenGLContext& gl) { gl.setLighting(!gl.isLighting()); }},
    {SDLK_w, [](OpenGLContext& gl) { gl.setDrawMode(DRAW_WIRE); }},
    {SDLK_f, [](OpenGLContext& gl) { gl.setDrawMode(DRAW_FLAT); }},
    {SDLK_p, [](OpenGLContext& gl) { gl.setDrawMode(DRAW_PHONG); }},
    {SDLK_t, [](OpenGLContext& gl) { gl.setDrawMode(DRAW_TEXTURE); }},
    {SDLK_n, [](OpenGLContext& gl) { gl.setDrawMode(DRAW_MULTITEX); }},
};

/// The launchers ask for a keyboard whose lock keys modify nothing. SDL 1.2 sees to that itself;
/// the layer over SDL 2, with versions from 1.2.50 on, does not know the variable.
void leaveOutLockKeys(SDL_keysym& pressed) {
    constexpr int first_layer = 50;
    if (SDL_Linked_Version()->patch < first_layer || !std::getenv("SDL_DISABLE_LOCK_KEYS")) return;
    pressed.mod = static_cast<SDLMod>(pressed.mod & ~(KMOD_NUM | KMOD_CAPS));
}

/// Modifiers count as a whole: with a lock key or a second modifier on, a key is no command.
bool isKey(const SDL_keysym& pressed, SDLKey key, SDLMod modifiers) {
    return pressed.sym == key && pressed.mod == modifiers;
}

/// Returns false for a key that is no draw command.
bool runDrawCommand(const SDL_keysym& pressed) {
    const auto* command =
        std::find_if(std::begin(draw_commands), std::end(draw_commands),
                     [&](const auto& c) { return isKey(pressed, c.key, KMOD_LALT); });
    if (command == std::end(draw_commands)) return false;
    command->run(*OpenGLContext::getInstance());
    return true;
}

/// Switching an event type makes SDL drop everything that is queued. Nothing of that is missed but
/// the player's wish to leave, which this keeps over whatever switches.
template <typename Switch>
void keepingWindowClose(Switch change) {
    SDL_Event close;
    SDL_PumpEvents();
    const bool closing = SDL_PeepEvents(&close, 1, SDL_GETEVENT, SDL_QUITMASK) > 0;
    change();
    if (closing) SDL_PushEvent(&close);
}

void switchEvents(Uint8 type, int state) {
    keepingWindowClose([&] { SDL_EventState(type, state); });
}

void logProgress(const std::string& text) {
    logLine(std::cout, "SDL: ", text);
}

/// For the end of the process: the desktop gets its own resolution back, and SDL's threads end
/// before the libraries that they call into go. Window and driver stay, and the system takes them.
void letGo() {
    SDL_Surface* screen = SDL_GetVideoSurface();
    if (screen && (screen->flags & SDL_FULLSCREEN) != 0) SDL_WM_ToggleFullScreen(screen);
    SDL_QuitSubSystem(SDL_INIT_AUDIO | SDL_INIT_TIMER);
}

/// Video and sound are what the game cannot do without.
void initOrThrow(Uint32 subsystem) {
    if (SDL_Init(subsystem) == -1) throw Exception(SDL_GetError());
}

}  // namespace

void SDLContext::init(int flags, int w, int h) {
    if (instance) throw Exception("SDLContext::init: only one instance allowed");
    instance = new SDLContext(flags, w, h);
}

SDLContext* SDLContext::getInstance() {
    if (!instance) throw Exception("SDLContext::getInstance: no instance");
    return instance;
}

SDLContext::SDLContext(int flags, int w, int h) : width(w), height(h) {
    ignoreKeys();
    if (flags & SDL_INIT_VIDEO) initVideo();
    if (flags & SDL_INIT_AUDIO) initAudio();
    if (flags & SDL_INIT_JOYSTICK) initJoystick();
    initTimer();
    static_cast<void>(std::atexit(letGo));  // there is room for 32 of them at least
}

// The screen and the video record are SDL's own and go with it.
SDLContext::~SDLContext() {
    if (fps_timer) SDL_RemoveTimer(fps_timer);
    joystick.reset();
    SDL_Quit();
    instance = nullptr;
}

float SDLContext::getAspectRatio() const {
    return static_cast<float>(width) / static_cast<float>(height);
}

int SDLContext::pollEvent(SDL_Event& event) {
    while (SDL_PollEvent(&event)) {
        if (event.type == SDL_VIDEORESIZE) {
            resize(event.resize.w, event.resize.h);
            event.type = SDL_VIDEOEXPOSE;
            return 1;
        }
        if (event.type != SDL_KEYDOWN) return 1;

        SDL_keysym& pressed = event.key.keysym;
        leaveOutLockKeys(pressed);
        if (isKey(pressed, SDLK_RETURN, KMOD_LALT)) {
            toggleFullScreen();
            event.type = SDL_VIDEOEXPOSE;
            return 0;
        }
        if (isKey(pressed, SDLK_PRINT, KMOD_NONE)) {
            saveScreenshot();
            continue;
        }
        if (!runDrawCommand(pressed)) return 1;
    }
    return 0;
}

void SDLContext::enableEvents(unsigned char type) {
    switchEvents(type, SDL_ENABLE);
}

void SDLContext::disableEvents(unsigned char type) {
    switchEvents(type, SDL_IGNORE);
}

void SDLContext::enableCursor() {
    SDL_ShowCursor(1);
}

void SDLContext::disableCursor() {
    SDL_ShowCursor(0);
}

// Keys pressed while the game loads must not act when it starts.
void SDLContext::ignoreKeys() {
    disableEvents(SDL_KEYDOWN);
    disableEvents(SDL_KEYUP);
}

void SDLContext::initVideo() {
    logProgress("initializing video (using opengl)...");
    initOrThrow(SDL_INIT_VIDEO);
    ignoreKeys();  // video start-up has switched all events on

    v_info = SDL_GetVideoInfo();
    if (!v_info) throw Exception(SDL_GetError());
    bpp = v_info->vfmt->BitsPerPixel;

    for (const auto& [attribute, value] : gl_attributes) SDL_GL_SetAttribute(attribute, value);
    setVideoMode();
    disableCursor();

    logProgress("setting up opengl...");
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->reshape(width, height);
    logLine(std::cout, "SDL: ", "OpenGLContext:\n", *gl);
}

void SDLContext::initAudio() {
    logProgress("initializing audio...");
    initOrThrow(SDL_INIT_AUDIO);
    audio = AudioFactory::getInstance();
    audio->setVolumeMusic(100);
    audio->setVolume(AudioFactory::channel_volume, every_channel);
    logLine(std::cout, "SDL: ", "AudioFactory:\n", *audio);
}

void SDLContext::initJoystick() {
    if (SDL_Init(SDL_INIT_JOYSTICK) < 0)
        logLine(std::cerr, "ERROR (SDL): ", "cannot initialize joystick");
    const int found = SDL_NumJoysticks();
    logLine(std::cout, "SDL: ", "found ", found, " joystick(s)");
    if (found < 1) return;

    std::unique_ptr<Joystick> first;
    keepingWindowClose([&] { first = std::make_unique<Joystick>(0); });
    if (!first->isOpen()) return;
    joystick = std::move(first);
    logLine(std::cout, "SDL: ", "using joystick ", joystick->getNumber(), ": ",
            joystick->getName());
}

void SDLContext::initTimer() {
    if (SDL_Init(SDL_INIT_TIMER) < 0)
        logLine(std::cerr, "ERROR (SDL): ", "cannot initialize timer");
    fps_timer = SDL_AddTimer(frame_rate_interval, updateFPS, nullptr);
}

void SDLContext::setVideoMode() {
    screen = SDL_SetVideoMode(width, height, bpp, SDL_OPENGL);
    if (!screen) throw Exception(SDL_GetError());
}

void SDLContext::resize(int w, int h) {
    width = w;
    height = h;
    setVideoMode();
    OpenGLContext::getInstance()->reshape(width, height);
}

void SDLContext::toggleFullScreen() {
    if (SDL_WM_ToggleFullScreen(screen) == 0)
        throw Exception("SDLContext::pollEvent: cannot toggle fullscreen mode");
}

void SDLContext::saveScreenshot() const {
    OpenGLContext::getInstance()->captureScreen(0, 0, width, height).writeTGA("screenshot.tga");
}
