#include "tests/support/joystick.h"

#include <SDL.h>

/// What the game has read of the device.
struct _SDL_Joystick {
    std::vector<int> axes;
    std::vector<bool> buttons;
};

namespace {

PluggedJoystick* device = nullptr;
SDL_Joystick seen;

}  // namespace

PluggedJoystick::PluggedJoystick(int num_axes, int num_buttons)
    : axes(num_axes), buttons(num_buttons) {
    device = this;
    seen = {axes, buttons};
}

PluggedJoystick::~PluggedJoystick() {
    device = nullptr;
}

int SDL_NumJoysticks() {
    return device ? 1 : 0;
}

const char* SDL_JoystickName(int) {
    return device ? "Test Stick" : nullptr;
}

SDL_Joystick* SDL_JoystickOpen(int index) {
    return device && device->can_open && index == 0 ? &seen : nullptr;
}

void SDL_JoystickClose(SDL_Joystick*) {}

int SDL_JoystickNumAxes(SDL_Joystick* stick) {
    return static_cast<int>(stick->axes.size());
}

int SDL_JoystickNumButtons(SDL_Joystick* stick) {
    return static_cast<int>(stick->buttons.size());
}

void SDL_JoystickUpdate() {
    if (device) seen = {device->axes, device->buttons};
}

Sint16 SDL_JoystickGetAxis(SDL_Joystick* stick, int axis) {
    return static_cast<Sint16>(stick->axes.at(axis));
}

Uint8 SDL_JoystickGetButton(SDL_Joystick* stick, int button) {
    return stick->buttons.at(button);
}
