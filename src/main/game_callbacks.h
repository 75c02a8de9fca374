#pragma once

#include "main/button_listener.h"
#include "main/checkbox_listener.h"

class MenuFrame;

/// The numbers of the main menu's buttons.
enum BUTTONenum : unsigned int {
    BTN_CONTINUE = 2,
    BTN_QUIT = 3,
    BTN_VIDEO = 4,
    BTN_AUDIO = 5,
    BTN_CONTROL = 6,
};

/// Decides what a press in the main menu comes to. The driver owns it.
class GameCallbacks : public _ButtonListener, public _CheckboxListener {
public:
    MCRESULTenum press(unsigned int id) override;

    /// For settings that the menu does not have yet; none of these has an effect.
    void check(unsigned int id, bool checked) override;
    void changeValue(unsigned int id, unsigned int value);
    void setAudioMenu(MenuFrame* menu);
    void setVideoMenu(MenuFrame* menu);
    void setControlMenu(MenuFrame* menu);
};
