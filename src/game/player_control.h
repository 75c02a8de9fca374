#pragma once

#include "game/control.h"

#include <vector>

class Joystick;

/// The player at the keyboard or the joystick. A key changes a turn rate for good: the ship goes on
/// turning until the opposite key brings the rate back. The joystick sets the rates every frame.
class PlayerControl : public _Control {
public:
    explicit PlayerControl(Starship* s);

    /// Takes the piloting keys; all else is ignored.
    void handleEvents(const SDL_Event& event) override;

protected:
    void updateAI(int time_diff) override;

private:
    void readAxes(const Joystick& joystick);
    void readButtons(const Joystick& joystick);
    void readButton(const Joystick& joystick, int button, bool& wish);

    std::vector<bool> wait_for_button_release;  // by button: it was down at the last look

    // Turn rates. A rate of 1 is a degree in 300 milliseconds.
    float heading_angle = 0;
    float pitch_angle = 0;
    float roll_angle = 0;
};
