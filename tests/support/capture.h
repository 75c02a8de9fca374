#pragma once

#include <ostream>
#include <sstream>
#include <string>

/// Keeps what is written to a stream while it lives, instead of letting it through.
class Capture {
public:
    explicit Capture(std::ostream& stream) : stream(stream), original(stream.rdbuf(kept.rdbuf())) {}
    ~Capture() { stream.rdbuf(original); }

    std::string text() const { return kept.str(); }

private:
    std::ostream& stream;
    std::ostringstream kept;
    std::streambuf* original;
};
