#pragma once

#include "3d/bounding_object.h"
#include "3d/material.h"
#include "3d/point.h"
#include "3d/vector.h"
#include "3d/vector2.h"
#include "game/drawable.h"

#include <GL/gl.h>

#include <array>
#include <memory>
#include <ostream>
#include <vector>

/// A renderable model: tables of vertices, texture vertices, normals and materials, a bounding
/// object, and six display lists, one for each draw mode. Everything is filled and compiled while
/// the model is loaded; from then on drawing is one list call and the tables serve queries only.
/// Whoever holds a model sets the modelview matrix before drawing it. Needs an OpenGL context.
class _3DObject : public _Drawable {
public:
    /// A model with one texture layer, or with two.
    _3DObject(MTLenum m, BOUNDINGenum b);
    _3DObject(MTLenum m1, MTLenum m2, BOUNDINGenum b);
    ~_3DObject() override;
    _3DObject(const _3DObject&) = delete;
    _3DObject& operator=(const _3DObject&) = delete;

    /// Draws the list of that mode under the current matrices. A shadow is drawn unlit and blended.
    void draw(DRWenum type) const override;

    /// True for models made of polygon faces.
    virtual bool hasMultipleFaces() const { return false; }

    /// The entries of the tables. All throw Exception for an index outside the table.
    const Point4& getVertex(int index) const;
    const Vector4& getNormal(int index) const;
    const Vector2& getTVertex(int index) const;
    Material* getMaterial(int index) const;

    int getAnzVertex() const { return static_cast<int>(vertexTable.size()); }
    int getAnzTVertex() const { return static_cast<int>(tVertexTable.size()); }
    int getAnzNormal() const { return static_cast<int>(normalTable.size()); }
    int getAnzMaterial() const { return static_cast<int>(materialTable.size()); }

    GLuint getDisplayList(DRWenum type) const { return displayList + type; }
    /// How layer 0 or 1 is textured. Throws Exception for any other index.
    MTLenum getMaterialMode(int i) const;
    bool isMultiTextured() const { return multi_tex; }

    const Point4& getCenter() const { return center; }
    void setCenter(const Point4& c) { center = c; }

    /// The kind of bounding object that was asked for.
    BOUNDINGenum getBoundingMode() const { return bounding_mode; }
    /// The bounding object in model space; null until it is built.
    const _BoundingObject* getBoundingObject() const { return b_obj.get(); }
    /// Takes ownership of `b` and releases the bounding object before it.
    void setBoundingObject(_BoundingObject* b) { b_obj.reset(b); }

    /// Mirrors the vertex table at the plane x = 0. Compiled lists stay as they are.
    void flipX();

protected:
    void addVertex(const Point4& p) { vertexTable.push_back(p); }
    void addTVertex(const Vector2& t) { tVertexTable.push_back(t); }
    void addNormal(const Vector4& n) { normalTable.push_back(n); }
    /// Sets the normal of one vertex, after giving every vertex a normal. An index outside the
    /// table is reported and changes nothing.
    void addNormal(int index, const Vector4& n);
    /// Takes ownership of the material.
    void addMaterial(Material* m);
    /// Drops the last material from the table and hands it to the caller; null when there is none.
    [[nodiscard]] std::unique_ptr<Material> popMaterial();
    /// Makes room, no more.
    void reserveTables(int vertices, int texture_vertices);

    /// Finds the centre of all vertices and builds the bounding object around it.
    /// Throws _3DException when there are no vertices.
    void computeCenter();

    /// Compiles the list of one draw mode.
    virtual void initDisplayList(DRWenum type) = 0;
    /// Compiles the lists of all draw modes.
    void init();

private:
    Point4 center;
    BOUNDINGenum bounding_mode;
    std::array<MTLenum, 2> mtl_mode;
    bool multi_tex;
    std::vector<Point4> vertexTable;
    std::vector<Vector2> tVertexTable;
    std::vector<Vector4> normalTable;  // entry i belongs to vertex i
    std::vector<std::unique_ptr<Material>> materialTable;
    std::unique_ptr<_BoundingObject> b_obj;
    GLuint displayList;  // the first of six
};

/// Writes the centre and the numbers of vertices and materials, one line each.
std::ostream& operator<<(std::ostream& out, const _3DObject& o);
