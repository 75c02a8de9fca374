#pragma once

#include <SDL.h>

#include <memory>
#include <string>

/// One joystick of the machine. It raises no events: whoever flies with it calls update() once per
/// frame and reads axes and buttons. Held by SDLContext.
class Joystick {
public:
    /// Opens the device of that index. One that cannot be opened is logged and stays closed.
    /// Throws Exception when its events cannot be switched off.
    explicit Joystick(int num);

    bool isOpen() const { return joystick != nullptr; }
    /// The device's name, empty when it has none.
    std::string getName() const;
    int getNumber() const { return number; }

    /// Reads the present state of all open devices; the getters below tell of that moment.
    void update() const;
    /// Whether the device has the axis `i` at all.
    bool hasAxis(int i) const;
    /// Position from -32768 to 32767; 0 for an axis that the device lacks.
    int getAxis(int i) const;
    /// Whether the device has the button `i` at all.
    bool hasButton(int i) const;
    /// False for a button that the device lacks.
    bool isButtonPressed(int i) const;

private:
    struct Close {
        void operator()(SDL_Joystick* device) const { SDL_JoystickClose(device); }
    };

    std::unique_ptr<SDL_Joystick, Close> joystick;
    int number;
};
