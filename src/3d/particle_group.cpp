#include "3d/particle_group.h"

#include "3d/color_rgba.h"
#include "3d/point.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

namespace {

constexpr std::size_t particle_size = 7;  // floats

}  // namespace

ParticleGroup::ParticleGroup(PTCLenum type, unsigned int count, const Modifier& mod)
    : type(type), count(count), p_data(count * particle_size), mod(mod) {}

void ParticleGroup::addParticle(const Point4& p, const ColorRGBA& c, float s) {
    if (curr_pos >= count) throw Exception("ParticleGroup::addParticle: out of bounds");
    GLfloat* particle = &p_data[curr_pos++ * particle_size];
    for (const float value : {c.getRed(), c.getGreen(), c.getBlue(), p.x, p.y, p.z, s})
        *particle++ = value;
}

void ParticleGroup::draw(DRWenum) const {
    if (curr_pos != count)
        logLine(std::cerr, "WARNING (3D): ", "ParticleGroup::draw: group not filled correctly");
    if (type != PTCL_POINT) {
        logLine(std::cerr, "ERROR (3D): ", "ParticleGroup::draw: sorry, particle type <",
                static_cast<int>(type), "> is not implemented yet");
        return;
    }
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glBegin(GL_POINTS);
    glEnd();
}
