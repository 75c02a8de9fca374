#include "3d/3d_object.h"

#include "3d/3d_exception.h"
#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "3d/color_rgba.h"
#include "3d/opengl.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr GLsizei num_draw_modes = DRAW_SHADOW + 1;

template <typename Table>
const typename Table::value_type& entry(const Table& table, int index, const char* failure) {
    if (index < 0 || static_cast<std::size_t>(index) >= table.size()) throw Exception(failure);
    return table[static_cast<std::size_t>(index)];
}

}  // namespace

_3DObject::_3DObject(MTLenum m, BOUNDINGenum b)
    : bounding_mode(b),
      mtl_mode{m, MTL_TEX_DECAL},
      multi_tex(false),
      displayList(glGenLists(num_draw_modes)) {}

_3DObject::_3DObject(MTLenum m1, MTLenum m2, BOUNDINGenum b)
    : bounding_mode(b),
      mtl_mode{m1, m2},
      multi_tex(true),
      displayList(glGenLists(num_draw_modes)) {}

_3DObject::~_3DObject() {
    if (displayList != 0) glDeleteLists(displayList, num_draw_modes);
}

void _3DObject::draw(DRWenum type) const {
    OpenGLContext* context = OpenGLContext::getInstance();
    glPushMatrix();
    if (type == DRAW_SHADOW) {
        context->getLightFactory()->deactivateLighting();
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        ColorRGBA(0, 0, 0, 0.6f).activate();
    } else if (context->isLighting()) {
        context->getLightFactory()->activateLighting();
    }
    glCallList(getDisplayList(type));
    if (type == DRAW_SHADOW) glDisable(GL_BLEND);
    glPopMatrix();
}

const Point4& _3DObject::getVertex(int index) const {
    return entry(vertexTable, index, "_3DObject::getVertex: out of bounds");
}

const Vector4& _3DObject::getNormal(int index) const {
    return entry(normalTable, index, "_3DObject::getNormal: out of bounds");
}

const Vector2& _3DObject::getTVertex(int index) const {
    return entry(tVertexTable, index, "_3DObject::getTexCoord: out of bounds");
}

Material* _3DObject::getMaterial(int index) const {
    return entry(materialTable, index, "_3DObject::getMaterial: out of bounds").get();
}

MTLenum _3DObject::getMaterialMode(int i) const {
    return entry(mtl_mode, i, "_3DObject::getMaterialMode: invalid index");
}

void _3DObject::flipX() {
    for (Point4& vertex : vertexTable) vertex.x *= -1;
}

void _3DObject::addNormal(int index, const Vector4& n) {
    normalTable.resize(vertexTable.size());
    if (index < 0 || index >= getAnzNormal()) {
        logLine(std::cerr, "ERROR (3D): ", "_3DObject::addNormal: out of range (", index, "/",
                getAnzNormal(), ")");
        return;
    }
    normalTable[static_cast<std::size_t>(index)] = n;
}

void _3DObject::addMaterial(Material* m) {
    std::unique_ptr<Material> owned(m);
    materialTable.push_back(std::move(owned));
}

std::unique_ptr<Material> _3DObject::popMaterial() {
    if (materialTable.empty()) return nullptr;
    std::unique_ptr<Material> last = std::move(materialTable.back());
    materialTable.pop_back();
    return last;
}

void _3DObject::reserveTables(int vertices, int texture_vertices) {
    vertexTable.reserve(static_cast<std::size_t>(vertices));
    normalTable.reserve(static_cast<std::size_t>(vertices));
    tVertexTable.reserve(static_cast<std::size_t>(texture_vertices));
}

void _3DObject::computeCenter() {
    if (vertexTable.empty()) throw _3DException("_3DObject::computeCenter: no vertices");

    Point4 min = vertexTable.front();
    Point4 max = min;
    for (const Point4& vertex : vertexTable) {
        min = Point4(std::min(min.x, vertex.x), std::min(min.y, vertex.y),
                     std::min(min.z, vertex.z), 1);
        max = Point4(std::max(max.x, vertex.x), std::max(max.y, vertex.y),
                     std::max(max.z, vertex.z), 1);
    }
    center = Point4(min, max);

    const Vector4 extent(center, max);
    if (bounding_mode == BOUNDING_SPHERE) {
        // The largest half-extent, not the half-diagonal: corners may lie outside.
        const float radius = std::max({extent.x, extent.y, extent.z});
        b_obj = std::make_unique<BoundingSphere>(center, radius);
    } else {
        b_obj =
            std::make_unique<BoundingBox>(center, Vector4(extent.x, 0, 0, 1),
                                          Vector4(0, extent.y, 0, 1), Vector4(0, 0, extent.z, 1));
    }
}

void _3DObject::init() {
    for (int mode = DRAW_WIRE; mode <= DRAW_SHADOW; ++mode) {
        initDisplayList(static_cast<DRWenum>(mode));
    }
}

std::ostream& operator<<(std::ostream& out, const _3DObject& o) {
    return out << "* center: " << o.getCenter() << std::endl
               << "* # vertices: " << o.getAnzVertex() << std::endl
               << "* # materials: " << o.getAnzMaterial() << std::endl;
}
