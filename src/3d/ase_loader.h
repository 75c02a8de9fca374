#pragma once

#include "3d/ase_file.h"
#include "3d/comp3d_object.h"

#include <array>
#include <memory>

/// Three numbers behind an index, as vertices and normals stand in an ASE file. A number
/// that a faulty line lacks keeps its value from the line before.
struct AsePoint {
    int index = 0;
    float x = 0;
    float y = 0;
    float z = 0;

    void read(AseFile& file) { file.getNumbers(index, x, y, z); }
    /// The z axis of the file points up, the y axis of the game does.
    Point4 asVertex() const { return {x, z, -y, 1}; }
    Vector4 asNormal() const { return {x, y, z, 1}; }
};

/// The corners of a face behind its index, in either of the two forms of an ASE file.
struct AseCorners {
    int index = 0;
    std::array<int, 3> corners{};

    void readFace(AseFile& file) {
        if (file.getNumbers(index)) file.getCorners(corners[0], corners[1], corners[2]);
    }
    void readTextureFace(AseFile& file) {
        file.getNumbers(index, corners[0], corners[1], corners[2]);
    }
};

/// The steps that the loaders of one ASE file and of two have in common.
class _AseLoader : public Comp3DObject {
protected:
    using Comp3DObject::Comp3DObject;

    /// What happens at a tiling for which the material has no texture.
    enum TilingFault { TILING_REPORTED, TILING_THROWN };

    /// Loads up to `count` sub-materials of a material into the table.
    void loadSubMaterials(AseFile& file, int index, int count, MTLenum mode, TilingFault fault);
    /// Loads the material itself. One that the file ends in is lost.
    void loadPlainMaterial(AseFile& file, int index, MTLenum mode, TilingFault fault);

    void reserve(const AseFile& file, const AseCounts& declared);
    void getTVertices(AseFile& file);
    void getMaterialReference(AseFile& file);

    int mat_ref = 0;  // the material of the geometry object, counted from 0

private:
    /// False when the file ended first.
    bool addMaterialUpTo(AseFile& file, bool sub_material, MTLenum mode, TilingFault fault);
};
