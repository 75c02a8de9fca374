#pragma once

#include "main/exception.h"
#include "tests/support/temp_dir.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

/// What all fuzzers share.
namespace fuzz {

/// Nothing is printed from here on, and nothing is formatted for it.
inline void silence() {
    std::cout.setstate(std::ios::failbit);
    std::cerr.setstate(std::ios::failbit);
}

/// Lets the game take bad input. It may report it by its own failure, and in no other way.
template <typename Load>
void attempt(Load load) {
    try {
        load();
    } catch (const Exception&) {
        // said what is wrong, as it should
    }
}

/// Ends the run with the input at hand if something that must be true is not.
inline void require(bool truth) {
    if (!truth) std::abort();
}

inline std::string toText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The folder of the input that a reader takes as a file.
inline const TempDir& folder() {
    static const TempDir dir;
    return dir;
}

}  // namespace fuzz

extern "C" {
int LLVMFuzzerInitialize(int* argc, char*** argv);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}
