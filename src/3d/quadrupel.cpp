#include "3d/quadrupel.h"

#include "3d/3d_exception.h"

_Quadrupel::_Quadrupel(const float* v) {
    if (!v) throw QuadrupelException("_Quadrupel::_Quadrupel: null pointer");
    x = v[0];
    y = v[1];
    z = v[2];
    w = v[3];
}

void _Quadrupel::getFloat4p(float* v) const {
    if (!v) throw Exception("_Quadrupel::getFloat3p: null pointer");
    v[0] = x;
    v[1] = y;
    v[2] = z;
    v[3] = w;
}

std::ostream& operator<<(std::ostream& out, const _Quadrupel& q) {
    return out << "(" << q.x << ", " << q.y << ", " << q.z << ", " << q.w << ")";
}
