#include "main/joystick.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

Joystick::Joystick(int num) : joystick(SDL_JoystickOpen(num)), number(num) {
    if (!joystick) {
        logLine(std::cerr, "ERROR (SDL): ", "cannot open joystick ", num);
        return;
    }
    if (SDL_JoystickEventState(SDL_IGNORE) != 0)
        throw Exception("Joystick::Joystick: cannot unset joystick event state");
}

std::string Joystick::getName() const {
    const char* name = SDL_JoystickName(number);
    return name ? name : "";
}

void Joystick::update() const {
    SDL_JoystickUpdate();
}

bool Joystick::hasAxis(int i) const {
    return joystick && i >= 0 && i < SDL_JoystickNumAxes(joystick.get());
}

int Joystick::getAxis(int i) const {
    return hasAxis(i) ? SDL_JoystickGetAxis(joystick.get(), i) : 0;
}

bool Joystick::hasButton(int i) const {
    return joystick && i >= 0 && i < SDL_JoystickNumButtons(joystick.get());
}

bool Joystick::isButtonPressed(int i) const {
    return hasButton(i) && SDL_JoystickGetButton(joystick.get(), i) != 0;
}
