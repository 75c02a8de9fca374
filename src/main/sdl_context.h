#pragma once

#include "main/joystick.h"

#include <SDL.h>

#include <memory>

class AudioFactory;

/// The game's window with its OpenGL surface, the event queue, the joystick and the timer of the
/// frame counter. The one owner of everything that SDL opens; created first, kept until the process
/// ends. Global key commands (screenshot, full screen, draw modes) are handled here, for every
/// screen of the game.
class SDLContext {
public:
    /// Opens the window and whatever else `flags` (SDL_INIT_...) asks for; `w` and `h` in pixels.
    /// Throws Exception when video or audio cannot be started, and on a second call.
    static void init(int flags, int w, int h);
    /// Throws Exception before init().
    static SDLContext* getInstance();

    ~SDLContext();
    SDLContext(const SDLContext&) = delete;
    SDLContext& operator=(const SDLContext&) = delete;

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getBitsPerPixel() const { return bpp; }
    /// Width over height of the window.
    float getAspectRatio() const;
    /// SDL's own record of the desktop's video mode; null without video.
    const SDL_VideoInfo* getVideoInfo() const { return v_info; }
    /// The first joystick, or null where there is none or it did not open.
    Joystick* getJoystick() const { return joystick.get(); }

    /// Takes the next event that is none of the global key commands. Returns 1 when `event` holds
    /// one and 0 when not. A change of the window's size arrives as SDL_VIDEOEXPOSE.
    int pollEvent(SDL_Event& event);

    /// Switch one event type on or off. What was queued is dropped, except for a window close.
    void enableEvents(unsigned char type);
    void disableEvents(unsigned char type);

    void enableCursor();
    void disableCursor();

private:
    SDLContext(int flags, int w, int h);

    void ignoreKeys();
    void initVideo();
    void initAudio();
    void initJoystick();
    void initTimer();

    /// Opens the window, or gives it its present size. Throws Exception.
    void setVideoMode();
    void resize(int w, int h);
    void toggleFullScreen();
    void saveScreenshot() const;

    static SDLContext* instance;

    int width;
    int height;
    int bpp = 0;
    SDL_TimerID fps_timer = nullptr;
    const SDL_VideoInfo* v_info = nullptr;  // belongs to SDL
    SDL_Surface* screen = nullptr;
    std::unique_ptr<Joystick> joystick;
    AudioFactory* audio = nullptr;  // the mixer; it keeps itself
};
