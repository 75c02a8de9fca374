#pragma once

#include <string>
#include <utility>

/// The base of all in-game signals that travel as thrown objects. Not a failure: no handler for
/// Exception catches it.
class Event {
public:
    explicit Event(std::string msg) : message(std::move(msg)) {}

    std::string getMessage() const { return message; }

private:
    std::string message;
};
