#pragma once

#include "3d/animated_sprite.h"

#include <map>
#include <memory>
#include <string>

/// The masters of all animated sprites by name, loaded at the start of the game. What explodes gets
/// a copy of its own. Made on first use, lives until the process ends.
class GFX_Factory {
public:
    static GFX_Factory* getInstance();

    GFX_Factory(const GFX_Factory&) = delete;
    GFX_Factory& operator=(const GFX_Factory&) = delete;

    /// Loads a series of `frames` pictures, shown for 40 milliseconds each; `files` holds a "*" in
    /// place of their numbers. Throws Exception for a name that is taken, and for a series that
    /// cannot be loaded whole.
    void addAnimatedSprite(const std::string& name, const std::string& files, int frames);
    /// A copy at its first frame. Throws Exception for a name that is unknown.
    AnimatedSprite getAnimatedSprite(const std::string& name) const;

private:
    GFX_Factory() = default;

    static GFX_Factory* instance;
    std::map<std::string, std::unique_ptr<const AnimatedSprite>> animated_sprites;
};
