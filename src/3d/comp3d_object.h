#pragma once

#include "3d/3d_object.h"

#include <vector>

/// One polygon of a model. Corners are indices into the model's tables.
struct face_t {
    std::vector<int> vertInd;
    std::vector<int> tVertInd1;  // texture vertex per corner, first layer
    std::vector<int> tVertInd2;  // the same for the second layer
    int matInd1 = 0;
    int matInd2 = 0;
    bool multi_tex = false;  // the face has two layers
    Vector4 normal;          // unit length, or (0, 0, 0, 1) for a face without area
    float d = 0;             // plane constant: -(normal . first vertex)
};

/// A model made of polygon faces; the base of everything that is loaded from a model file.
/// A loader fills in vertices first, then faces, computes normals and centre, and compiles the
/// lists.
class Comp3DObject : public _3DObject {
public:
    Comp3DObject(MTLenum m, BOUNDINGenum b) : _3DObject(m, b) {}
    Comp3DObject(MTLenum m1, MTLenum m2, BOUNDINGenum b) : _3DObject(m1, m2, b) {}

    bool hasMultipleFaces() const override { return true; }

    int getAnzFaces() const { return static_cast<int>(faceTable.size()); }
    /// Throws Exception for an index outside the table.
    const face_t& getFace(int index) const;

protected:
    /// The same face, for a loader to complete.
    face_t& editFace(int index);

    /// Appends a face. Throws Exception when a corner is no vertex of the model.
    void addFace(face_t f);
    /// Makes room, no more.
    void reserveFaces(int faces) { faceTable.reserve(static_cast<std::size_t>(faces)); }

    /// Sets the normal of a face and the plane constant that goes with it.
    void setFaceNormal(face_t& face, const Vector4& normal) const;
    /// Gives each face its normal. Throws Exception for a face of fewer than three corners; of more
    /// than three corners only the first three count.
    void computeFaceNormals();
    /// Appends for each vertex the mean direction of the faces around it, all of equal weight.
    void computeVertexNormals();

    /// Compiles one polygon per face, and the material of a face where it changes. Throws Exception
    /// when a face names an entry that is in no table; the list then ends where it got to.
    void initDisplayList(DRWenum type) override;

private:
    /// The same index. Throws Exception when there is no such face.
    std::size_t checkFace(int index) const;
    /// The surface of a face; `second` is null unless two layers are to be drawn.
    struct Layers {
        const Material* first = nullptr;
        const Material* second = nullptr;
        bool operator==(const Layers&) const = default;
    };

    const Material* getSecondLayer(const face_t& face) const;
    void drawFace(const face_t& face, const Layers& layers, DRWenum type) const;
    void sendNormal(const face_t& face, int vertex, DRWenum type) const;
    void sendTexCoords(const face_t& face, std::size_t corner, const Layers& layers) const;
    /// A corner's texture vertex, tiled and shifted as the material's texture says.
    Vector2 getTexCoord(const std::vector<int>& indices, std::size_t corner,
                        const Material& material) const;

    std::vector<face_t> faceTable;
    std::vector<std::vector<int>> vertexMap;  // for each vertex the faces that use it
};
