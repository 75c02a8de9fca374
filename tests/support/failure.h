#pragma once

#include "main/exception.h"

#include <string>

/// The message of the Exception that `action` throws; "nothing thrown" when it goes well.
template <typename Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const Exception& e) {
        return e.getMessage();
    }
    return "nothing thrown";
}
