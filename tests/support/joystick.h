#pragma once

#include <vector>

/// The test program's own joystick device, under the SDL functions that the game calls. Plugged in
/// while an object of this class lives; without one the machine has no joystick. As with a real
/// device, what the hand does is seen only after the next SDL_JoystickUpdate().
class PluggedJoystick {
public:
    explicit PluggedJoystick(int num_axes = 6, int num_buttons = 3);
    ~PluggedJoystick();
    PluggedJoystick(const PluggedJoystick&) = delete;
    PluggedJoystick& operator=(const PluggedJoystick&) = delete;

    bool can_open = true;
    std::vector<int> axes;
    std::vector<bool> buttons;
};
