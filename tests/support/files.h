#pragma once

#include <fstream>
#include <iterator>
#include <string>

/// All of a file; empty when it does not open.
inline std::string readFile(const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
