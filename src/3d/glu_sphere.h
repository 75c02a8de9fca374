#pragma once

#include "3d/glu_primitive.h"

/// A sphere around the origin, ready to draw; the shield around a ship is one.
/// Its bounding object is always a sphere of the same radius.
class GluSphere final : public _GluPrimitive {
public:
    /// A sphere of radius 1 in the default material.
    GluSphere();
    /// All forms take ownership of the material, which must not be null.
    GluSphere(double radius, Material* m);
    GluSphere(double radius, int slices, int stacks, Material* m);

protected:
    void initDisplayList(DRWenum type) override;

private:
    GluSphere(double radius, int slices, int stacks, Material* m, BOUNDINGenum b);

    GLdouble radius;
    GLint slices;
    GLint stacks;
};
