#include "3d/glu_sphere.h"

#include "3d/bounding_sphere.h"
#include "3d/list_compilation.h"

namespace {

constexpr int default_resolution = 10;

}  // namespace

GluSphere::GluSphere() : GluSphere(1, new Material) {}

GluSphere::GluSphere(double radius, Material* m)
    : GluSphere(radius, default_resolution, default_resolution, m, BOUNDING_SPHERE) {}

GluSphere::GluSphere(double radius, int slices, int stacks, Material* m)
    : GluSphere(radius, slices, stacks, m, BOUNDING_BOX) {}

GluSphere::GluSphere(double radius, int slices, int stacks, Material* m, BOUNDINGenum b)
    : _GluPrimitive(m, b), radius(radius), slices(slices), stacks(stacks) {
    init();
    setBoundingObject(new BoundingSphere(Point4(), static_cast<float>(radius)));
}

void GluSphere::initDisplayList(DRWenum type) {
    const ListCompilation list(getDisplayList(type));
    mat->activate(true);
    gluQuadricDrawStyle(primitive.get(), type == DRAW_WIRE ? GLU_LINE : GLU_FILL);
    gluQuadricNormals(primitive.get(), type == DRAW_PHONG ? GLU_SMOOTH : GLU_FLAT);
    if (mat->hasTexture()) gluQuadricTexture(primitive.get(), GL_TRUE);
    gluSphere(primitive.get(), radius, slices, stacks);
}
