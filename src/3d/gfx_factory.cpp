#include "3d/gfx_factory.h"

#include "main/exception.h"

GFX_Factory* GFX_Factory::instance = nullptr;

GFX_Factory* GFX_Factory::getInstance() {
    if (!instance) instance = new GFX_Factory();
    return instance;
}

void GFX_Factory::addAnimatedSprite(const std::string& name, const std::string& files, int frames) {
    if (animated_sprites.contains(name))
        throw Exception("GFX_Factory::addAnimatedSprite: duplicate animation (" + name + ")");
    animated_sprites[name] = std::make_unique<AnimatedSprite>(files, frames, 0);
}

AnimatedSprite GFX_Factory::getAnimatedSprite(const std::string& name) const {
    const auto sprite = animated_sprites.find(name);
    if (sprite == animated_sprites.end())
        throw Exception("GFX_Factory::getAnimation: no such AnimatedSprite (" + name + ")");
    return *sprite->second;
}
