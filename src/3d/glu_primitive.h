#pragma once

#include "3d/3d_object.h"

#include <GL/glu.h>

#include <memory>
#include <ostream>

/// A model whose geometry GLU makes: one quadric in one material.
class _GluPrimitive : public _3DObject {
public:
    /// Takes ownership of the material, which must not be null.
    _GluPrimitive(Material* m, BOUNDINGenum b);
    ~_GluPrimitive() override;

    const Material& getMat() const { return *mat; }

protected:
    struct QuadricDeleter {
        void operator()(GLUquadric* q) const { gluDeleteQuadric(q); }
    };

    std::unique_ptr<GLUquadric, QuadricDeleter> primitive;
    std::unique_ptr<Material> mat;
};

/// Writes "* material: " and the material.
std::ostream& operator<<(std::ostream& out, const _GluPrimitive& p);
