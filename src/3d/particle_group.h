#pragma once

#include "3d/modifier.h"
#include "game/drawable.h"

#include <GL/gl.h>

#include <vector>

class ColorRGBA;
class Point4;

/// How a particle is drawn.
enum PTCLenum {
    PTCL_POINT = 0,
    PTCL_ANTIALIASED_POINT = 1,
    PTCL_TRIANGLE = 2,
};

/// A cloud of coloured points, filled once by the particle factory, which owns it.
class ParticleGroup : public _Drawable {
public:
    /// A group without room for any particle.
    ParticleGroup() = default;
    /// A group with room for `count` particles, still empty.
    ParticleGroup(PTCLenum type, unsigned int count, const Modifier& mod);

    PTCLenum getType() const { return type; }
    /// How many particles have room in the group.
    unsigned int getCount() const { return count; }

    /// Static particles do not change with time.
    void update(unsigned int /*timediff*/) {}
    /// Prepares OpenGL for points; the points themselves are not shown yet. Warns of a group that
    /// is not full; reports a type other than plain points and draws nothing.
    void draw(DRWenum mode) const override;

private:
    friend class ParticleFactory;

    /// Throws Exception when the group is full. The alpha of the colour is not kept.
    void addParticle(const Point4& p, const ColorRGBA& c, float s);

    PTCLenum type = PTCL_POINT;
    unsigned int count = 0;
    unsigned int curr_pos = 0;    // particles added so far
    std::vector<GLfloat> p_data;  // each particle's red, green, blue, x, y, z and size
    Modifier mod;
};
