#include "game/player_control.h"

#include "game/starship.h"
#include "main/joystick.h"
#include "main/sdl_context.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr float turn_time = 300;  // milliseconds in which a rate of 1 turns by a degree
constexpr int full_throttle = 100;

enum { HEADING_AXIS = 0, PITCH_AXIS = 1, ROLL_AXIS = 4, THROTTLE_AXIS = 5 };
enum { FIRE_BUTTON = 0, SELECT_BUTTON = 1, WEAPON_BUTTON = 2, NUM_BUTTONS = 10 };

constexpr float rate_per_axis = 0.000305185095f;  // full stick is a rate of 10
constexpr float roll_per_axis = 2 * rate_per_axis;

/// The throttle, in whole percent, of a lever at 32767 when closed and at -32768 when open.
int leverToThrottle(int axis) {
    return static_cast<int>(std::lround((static_cast<float>(axis) - 32767) / -655.36f));
}

}  // namespace

PlayerControl::PlayerControl(Starship* s)
    : _Control(s, CTRL_PLAYER), wait_for_button_release(NUM_BUTTONS, false) {}

void PlayerControl::handleEvents(const SDL_Event& event) {
    if (event.type != SDL_KEYDOWN) return;

    struct TurnKey {
        float PlayerControl::*rate;
        SDLKey key;
        float change;
    };
    static constexpr TurnKey turn_keys[] = {
        {&PlayerControl::heading_angle, SDLK_a, -1}, {&PlayerControl::heading_angle, SDLK_d, 1},
        {&PlayerControl::roll_angle, SDLK_e, 1},     {&PlayerControl::roll_angle, SDLK_q, -1},
        {&PlayerControl::pitch_angle, SDLK_s, -1},   {&PlayerControl::pitch_angle, SDLK_w, 1},
    };
    static constexpr std::pair<SDLKey, int> throttle_keys[] = {{SDLK_UP, 10}, {SDLK_DOWN, -10}};
    static constexpr std::pair<SDLKey, WPenum> weapon_keys[] = {{SDLK_BACKSPACE, WP_TORPEDO},
                                                                {SDLK_RETURN, WP_LASER}};

    const SDLKey pressed = event.key.keysym.sym;
    for (const auto& [rate, key, change] : turn_keys)
        if (key == pressed) this->*rate += change;
    for (const auto& [key, change] : throttle_keys)
        if (key == pressed) throttle = std::clamp(throttle + change, 0, full_throttle);
    for (const auto& [key, weapon] : weapon_keys) {
        if (key != pressed) continue;
        fired = true;
        weapon_mode = weapon;
    }
    if (pressed == SDLK_SPACE) select_new_object = true;
}

void PlayerControl::updateAI(int time_diff) {
    if (const Joystick* joystick = SDLContext::getInstance()->getJoystick()) {
        readAxes(*joystick);
        readButtons(*joystick);
    }

    const float frame = static_cast<float>(time_diff) / turn_time;
    Vector4 up = ship->getUp();
    Vector4 orientation = ship->getOrientation();
    up.rotate(orientation, roll_angle * frame);
    orientation.rotate(up, heading_angle * frame);
    orientation.rotate(orientation ^ up, pitch_angle * frame);
    new_up = up;
    new_orientation = orientation.normalize();  // hours of turning must not stretch the ship
}

/// An axis that the device lacks leaves its value to the keys.
void PlayerControl::readAxes(const Joystick& joystick) {
    const auto read = [&joystick](int axis, float& rate, float factor) {
        if (joystick.hasAxis(axis)) rate = static_cast<float>(joystick.getAxis(axis)) * factor;
    };
    read(ROLL_AXIS, roll_angle, -roll_per_axis);
    if (joystick.hasAxis(THROTTLE_AXIS))
        throttle = leverToThrottle(joystick.getAxis(THROTTLE_AXIS));
    read(HEADING_AXIS, heading_angle, rate_per_axis);
    read(PITCH_AXIS, pitch_angle, -rate_per_axis);
}

void PlayerControl::readButtons(const Joystick& joystick) {
    bool switch_weapon = false;
    readButton(joystick, FIRE_BUTTON, fired);
    readButton(joystick, SELECT_BUTTON, select_new_object);
    readButton(joystick, WEAPON_BUTTON, switch_weapon);
    if (switch_weapon) weapon_mode = static_cast<WPenum>(-weapon_mode);
}

/// A button acts once per press. While it is up, it takes back a wish that a key has made; one that
/// the device lacks leaves the wish to the keys.
void PlayerControl::readButton(const Joystick& joystick, int button, bool& wish) {
    if (!joystick.hasButton(button)) return;
    const bool was_down = wait_for_button_release[button];
    const bool is_down = joystick.isButtonPressed(button);
    wait_for_button_release[button] = is_down;
    if (!was_down) wish = is_down;
}
