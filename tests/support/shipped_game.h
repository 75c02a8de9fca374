#pragma once

#include "tests/support/temp_dir.h"

#include <filesystem>
#include <string>

/// A folder whose "data" is the shipped data set, to work in without leaving anything behind.
class ShippedGame {
public:
    ShippedGame() {
        folder.write("build/.keep", "");
        std::filesystem::create_directory_symlink(TARVEX_SOURCE_DIR "/data", folder / "data");
    }

    /// The working directory for the program.
    std::string getDirectory() const { return folder / "build"; }

private:
    TempDir folder;
};
