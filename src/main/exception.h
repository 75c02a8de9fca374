#pragma once

#include <ostream>
#include <string>
#include <utility>

/// The base of all failures. A failure that nobody handles ends the program with one line.
/// Thrown by value; the message names its origin: "Class::operation: text".
class Exception {
public:
    explicit Exception(std::string thisMsg) : msg(std::move(thisMsg)) {}

    std::string getMessage() const { return msg; }

protected:
    std::string msg;
};

/// Writes "Exception: ", the message and a line end.
inline std::ostream& operator<<(std::ostream& out, const Exception& e) {
    return out << "Exception: " << e.getMessage() << std::endl;
}
