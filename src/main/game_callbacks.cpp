#include "main/game_callbacks.h"

#include "main/log_factory.h"

#include <iostream>

MCRESULTenum GameCallbacks::press(unsigned int id) {
    logLine(std::cout, "!! MAIN(4): ", "button ", id, " pressed");
    switch (id) {
        case BTN_CONTINUE:
            return MC_MENU_EXIT;
        case BTN_QUIT:
            return MC_APP_EXIT;
        case BTN_VIDEO:
        case BTN_AUDIO:
        case BTN_CONTROL:
            return MC_HANDELED;
        default:
            return MC_NOT_HANDELED;
    }
}

void GameCallbacks::check(unsigned int /*id*/, bool /*checked*/) {}

void GameCallbacks::changeValue(unsigned int /*id*/, unsigned int /*value*/) {}

void GameCallbacks::setAudioMenu(MenuFrame* /*menu*/) {}

void GameCallbacks::setVideoMenu(MenuFrame* /*menu*/) {}

void GameCallbacks::setControlMenu(MenuFrame* /*menu*/) {}
