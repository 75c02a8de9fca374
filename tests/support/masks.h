#pragma once

#include "3d/bitmap_factory.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <filesystem>
#include <string>

/// Mask files: the shapes of a cockpit.
namespace masks {

/// A mask of full bytes, `w` by `h` pixels, in which every bit is set.
inline std::string full(int w, int h) {
    const int row = (w + 7) / 8;
    return std::to_string(w) + " " + std::to_string(h) + "\n" + std::string(row * h, '\xff');
}

/// The mask that every cockpit loads from a fixed place, as large as the picture it lies under.
const inline std::string shield_file = "data/masks/shield_mask.bw";
const inline std::string shield = full(256, 256);

/// Gives the program a shield mask, wherever it runs: a mask is known by its name once it is
/// loaded.
inline void registerShield() {
    static const Bitmap* known = nullptr;
    if (known) return;
    window();
    const TempDir dir;
    dir.write(shield_file, shield);
    dir.write("build/.keep", "");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(dir / "build");
    known = BitmapFactory::getInstance()->getBitmap("../" + shield_file);
    std::filesystem::current_path(before);
}

}  // namespace masks
