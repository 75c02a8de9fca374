#define GL_GLEXT_PROTOTYPES  // multitexturing

#include "3d/comp3d_object.h"

#include "3d/color_rgba.h"
#include "3d/list_compilation.h"
#include "3d/opengl.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <GL/glext.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

/// Ends the polygon on every way out, so that a list is never ended within one.
class Polygon {
public:
    Polygon() { glBegin(GL_POLYGON); }
    ~Polygon() { glEnd(); }
    Polygon(const Polygon&) = delete;
    Polygon& operator=(const Polygon&) = delete;
};

/// The direction of `v`; (0, 0, 0, 1) where it has none.
Vector4 direction(Vector4 v) {
    const float length = v.getLength();
    return length > 0 && std::isfinite(length) ? v.normalize() : Vector4();
}

bool isTextured(DRWenum type) {
    return type == DRAW_TEXTURE || type == DRAW_MULTITEX;
}

void switchOffSecondUnit() {
    glActiveTextureARB(GL_TEXTURE1_ARB);
    glDisable(GL_TEXTURE_2D);
    glActiveTextureARB(GL_TEXTURE0_ARB);
}

void activateSurface(const Material& first, const Material* second, DRWenum type) {
    if (type == DRAW_SHADOW) {
        glDisable(GL_TEXTURE_2D);
        ColorRGBA(1, 0, 0, 1).activate();
        return;
    }
    if (second) glActiveTextureARB(GL_TEXTURE0_ARB);
    first.activate(isTextured(type));
    if (!second) return;
    glActiveTextureARB(GL_TEXTURE1_ARB);
    second->activate(true);
}

}  // namespace

std::size_t Comp3DObject::checkFace(int index) const {
    if (index < 0 || index >= getAnzFaces()) {
        throw Exception("Comp3DObject::getFace: out of bounds");
    }
    return static_cast<std::size_t>(index);
}

const face_t& Comp3DObject::getFace(int index) const {
    return faceTable[checkFace(index)];
}

face_t& Comp3DObject::editFace(int index) {
    return faceTable[checkFace(index)];
}

void Comp3DObject::addFace(face_t f) {
    const int num_vertices = getAnzVertex();
    const auto outside = [=](int vertex) { return vertex < 0 || vertex >= num_vertices; };
    if (std::any_of(f.vertInd.begin(), f.vertInd.end(), outside)) {
        throw Exception("Comp3DObject::addFace: out of bounds");
    }
    vertexMap.resize(static_cast<std::size_t>(num_vertices));
    for (const int vertex : f.vertInd) {
        vertexMap[static_cast<std::size_t>(vertex)].push_back(getAnzFaces());
    }
    faceTable.push_back(std::move(f));
}

void Comp3DObject::setFaceNormal(face_t& face, const Vector4& normal) const {
    face.normal = normal;
    face.d = -(normal * Vector4(getVertex(face.vertInd.front())));
}

void Comp3DObject::computeFaceNormals() {
    for (face_t& face : faceTable) {
        if (face.vertInd.size() < 3) {
            throw Exception("Comp3DObject::computeFaceNormals: error: number of vertices < 3");
        }
        if (face.vertInd.size() > 3) {
            logLine(std::cout, "!! 3D(4): ",
                    "Comp3DObject::computeFaceNormals: warning: facenormals may be incorrect "
                    "(more than 3 v)");
        }
        const Point4& origin = getVertex(face.vertInd[0]);
        const Vector4 a(origin, getVertex(face.vertInd[1]));
        const Vector4 b(origin, getVertex(face.vertInd[2]));
        setFaceNormal(face, direction(a ^ b));
    }
}

void Comp3DObject::computeVertexNormals() {
    vertexMap.resize(static_cast<std::size_t>(getAnzVertex()));
    for (const std::vector<int>& faces : vertexMap) {
        Vector4 sum;
        for (const int face : faces) sum += getFace(face).normal;
        addNormal(direction(sum));
    }
}

void Comp3DObject::initDisplayList(DRWenum type) {
    if (faceTable.empty()) {
        logLine(std::cout, "!! 3D(4): ", "Comp3DObject::initDisplayList: no faces");
        return;
    }
    if (type < DRAW_WIRE || type > DRAW_SHADOW) {
        throw Exception("Comp3DObject::initDisplayList: unknown draw type");
    }
    const GLenum fill = type == DRAW_WIRE ? GL_LINE : GL_FILL;
    const Material plain;
    const ListCompilation list(getDisplayList(type));
    glPolygonMode(GL_FRONT, fill);
    glPolygonMode(GL_BACK, fill);
    // A face finds what the one before it has set, unless it differs: a renderer keeps a copy of
    // its whole state for every change, and joins the faces between two.
    Layers active;
    for (const face_t& face : faceTable) {
        const Layers layers = {getAnzMaterial() > 0 ? getMaterial(face.matInd1) : &plain,
                               type == DRAW_MULTITEX ? getSecondLayer(face) : nullptr};
        if (layers != active) {
            if (active.second && !layers.second) switchOffSecondUnit();
            activateSurface(*layers.first, layers.second, type);
            active = layers;
        }
        drawFace(face, layers, type);
    }
    if (active.second) switchOffSecondUnit();
}

const Material* Comp3DObject::getSecondLayer(const face_t& face) const {
    if (getAnzMaterial() == 0 || !face.multi_tex) return nullptr;
    if (!OpenGLContext::getInstance()->isMultiTexSupported()) return nullptr;
    const Material* second = getMaterial(face.matInd2);
    return second->hasTexture() ? second : nullptr;
}

void Comp3DObject::drawFace(const face_t& face, const Layers& layers, DRWenum type) const {
    const bool has_tex_coords =
        isTextured(type) && layers.first->hasTexture() && getAnzTVertex() > 0;
    const Polygon polygon;
    for (std::size_t corner = 0; corner < face.vertInd.size(); ++corner) {
        const int vertex = face.vertInd[corner];
        if (type != DRAW_SHADOW) sendNormal(face, vertex, type);
        if (has_tex_coords) sendTexCoords(face, corner, layers);
        getVertex(vertex).draw();
    }
}

void Comp3DObject::sendNormal(const face_t& face, int vertex, DRWenum type) const {
    const bool smooth = getAnzNormal() > 0 && type != DRAW_FLAT;
    const Vector4& normal = smooth ? getNormal(vertex) : face.normal;
    glNormal3f(normal.x, normal.y, normal.z);
}

void Comp3DObject::sendTexCoords(const face_t& face, std::size_t corner,
                                 const Layers& layers) const {
    const Vector2 t1 = getTexCoord(face.tVertInd1, corner, *layers.first);
    if (!layers.second) {
        glTexCoord2f(t1.x, t1.y);
        return;
    }
    const Vector2 t2 = getTexCoord(face.tVertInd2, corner, *layers.second);
    glMultiTexCoord2fARB(GL_TEXTURE0_ARB, t1.x, t1.y);
    glMultiTexCoord2fARB(GL_TEXTURE1_ARB, t2.x, t2.y);
}

Vector2 Comp3DObject::getTexCoord(const std::vector<int>& indices, std::size_t corner,
                                  const Material& material) const {
    constexpr int none = -1;
    const Vector2& t = getTVertex(corner < indices.size() ? indices[corner] : none);
    const Texture& texture = *material.getTexture();
    return {t.x * texture.getUTile() + texture.getUOffset(),
            t.y * texture.getVTile() + texture.getVOffset()};
}
