#include "3d/particle_factory.h"

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "game/chance.h"
#include "main/exception.h"

#include <unistd.h>

#include <cstdlib>

namespace {

/// How far a particle lies from the middle of a cube along one of its edges.
float randomOffset(float extent) {
    const float distance = 0.5f * extent * static_cast<float>(randomFraction());
    return randomFraction() > 0.5 ? -distance : distance;
}

Point4 randomPoint(const Point4& center, float extent) {
    const float x = randomOffset(extent);
    const float y = randomOffset(extent);
    const float z = randomOffset(extent);
    return {center.x + x, center.y + y, center.z + z, 1};
}

}  // namespace

ParticleFactory* ParticleFactory::instance = nullptr;

ParticleFactory* ParticleFactory::getInstance() {
    if (!instance) instance = new ParticleFactory();
    return instance;
}

ParticleFactory::ParticleFactory() {
    std::srand(static_cast<unsigned int>(getpid()));
}

ParticleGroup* ParticleFactory::createParticles(const Point4& center, float extent,
                                                unsigned int count, float min_size, float max_size,
                                                PTCLenum type) {
    if (min_size > max_size)
        throw Exception("ParticleFactory::createStaticParticles: max should be bigger than min");

    const ColorRGBA grey(0.5f, 0.5f, 0.5f, 0.8f);
    ParticleGroup group(type, count, Modifier());
    for (unsigned int i = 0; i < count; ++i) {
        const Point4 place = randomPoint(center, extent);
        const float size = min_size + (max_size - min_size) * static_cast<float>(randomFraction());
        group.addParticle(place, grey, size);
    }
    return &p_groups.emplace_back(std::move(group));
}

void ParticleFactory::deleteParticles(const ParticleGroup* group) {
    p_groups.remove_if([group](const ParticleGroup& own) { return &own == group; });
}
