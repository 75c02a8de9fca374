#pragma once

#include "3d/particle_group.h"

#include <list>

class Point4;

/// Makes and owns the particle groups of all galaxies. Made on first use, which seeds the C
/// library's random generator; lives until the process ends.
class ParticleFactory {
public:
    static ParticleFactory* getInstance();

    ParticleFactory(const ParticleFactory&) = delete;
    ParticleFactory& operator=(const ParticleFactory&) = delete;

    /// A group of `count` grey particles spread by chance over a cube with edges of length
    /// `extent`, their sizes between the two given. The factory owns it until it is deleted here.
    /// Throws Exception when `min_size` is above `max_size`.
    ParticleGroup* createParticles(const Point4& center, float extent, unsigned int count,
                                   float min_size, float max_size, PTCLenum type);
    /// Frees a group of this factory; any other pointer changes nothing.
    void deleteParticles(const ParticleGroup* group);

private:
    ParticleFactory();

    static ParticleFactory* instance;
    std::list<ParticleGroup> p_groups;
};
