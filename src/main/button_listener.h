#pragma once

#include "main/menu_control.h"

/// Whoever is told of a button's press.
class _ButtonListener {
public:
    virtual ~_ButtonListener() = default;

    /// `id` is the button's number. The result goes to the menu, which ends on some.
    virtual MCRESULTenum press(unsigned int id) = 0;
};
