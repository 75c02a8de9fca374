#include "3d/glu_primitive.h"

_GluPrimitive::_GluPrimitive(Material* m, BOUNDINGenum b)
    : _3DObject(MTL_TEX_COMBINED, b), primitive(gluNewQuadric()), mat(m) {}

_GluPrimitive::~_GluPrimitive() = default;

std::ostream& operator<<(std::ostream& out, const _GluPrimitive& p) {
    return out << "* material: " << p.getMat();
}
