#pragma once

#include "tests/support/temp_dir.h"

#include <string>

/// The text of a model file: a closed box around the origin, twelve faces, one material.
std::string boxModel(float half_size = 1);

/// A folder with the smallest complete game: "data/game.xml", one model file, a dark sky, buttons
/// of one colour (blue, green with the focus, red when pressed), the explosions and the working
/// directory "build". Tests change a piece of the game file to see what becomes of it.
class TinyGame {
public:
    TinyGame();

    /// Replaces one piece of the game file, which must be there exactly once.
    TinyGame& replace(const std::string& piece, const std::string& by);
    /// Writes a file, named from the folder of the game, such as "data/box.ASE".
    TinyGame& write(const std::string& name, const std::string& content);

    const std::string& getXml() const { return xml; }
    /// The working directory for the program.
    std::string getDirectory() const { return dir / "build"; }

private:
    TempDir dir;
    std::string xml;
};
