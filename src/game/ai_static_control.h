#pragma once

#include "game/control.h"

/// The pilot who does nothing: the ship keeps its attitude and its throttle of 0.
class AIStaticControl : public _Control {
public:
    explicit AIStaticControl(Starship* ship) : _Control(ship, CTRL_AI_STATIC) {}

protected:
    void updateAI(int) override {}
};
