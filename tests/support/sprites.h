#pragma once

#include "3d/gfx_factory.h"
#include "tests/support/picture.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"

#include <string>

/// The two series of pictures that every game has: ships burst in red, torpedoes in blue.
namespace sprites {

constexpr int explosion_frames = 101;
inline const std::string series = "data/tarvex_explosion/";

/// Writes both to where the game looks for them, into a TempDir or a TinyGame. A picture is known
/// by its content: these are no PNG files, whatever they are called.
template <typename Folder>
void writeExplosions(Folder& folder) {
    for (int i = 0; i < explosion_frames; ++i) {
        const std::string number = std::to_string(10000 + i).substr(1) + ".png";
        folder.write(series + "explosion" + number, picture::ppm(1, 1, "\xff\x01\x01"));
        folder.write(series + "torpedo_explosion_blue" + number,
                     picture::ppm(1, 1, "\x01\x01\xff"));
    }
}

/// Adds "starship_explosion" and "torpedo_explosion" to the effects, once per program.
inline void registerExplosions() {
    static GFX_Factory* effects = nullptr;
    if (effects) return;
    window();
    const TempDir dir;
    writeExplosions(dir);
    effects = GFX_Factory::getInstance();
    const std::string folder = dir / series;
    effects->addAnimatedSprite("starship_explosion", folder + "explosion*.png", explosion_frames);
    effects->addAnimatedSprite("torpedo_explosion", folder + "torpedo_explosion_blue*.png",
                               explosion_frames);
}

}  // namespace sprites
