#pragma once

#include "3d/ase_loader.h"

#include <array>
#include <string>

/// A model with two texture layers from two ASE files, which hold the same geometry with different
/// materials and texture coordinates. A planet is one: the ground, and the clouds above it.
/// Complete, with all display lists, when the constructor returns.
class MT_AseObject final : public _AseLoader {
public:
    /// File and texture mode of each layer; without `n` the normals are those of the files, as far
    /// as they hold any. Throws Exception when a file cannot be read, when the two differ in their
    /// geometry, or when one names something that does not exist.
    MT_AseObject(const std::string& f1, MTLenum mm1, const std::string& f2, MTLenum mm2,
                 BOUNDINGenum bm, bool n);

private:
    /// Each works on the first file in run 0 and on the second in run 1, which adds what belongs to
    /// the second layer and compares everything else with the first.
    /// False when the file holds no object.
    bool load(AseFile& file, int run);
    void loadObjectInfo(AseFile& file, int run);
    void loadMaterial(AseFile& file, int index, int run);
    void loadNormals(AseFile& file, int run);
    void loadFaceNormal(const AsePoint& read, int run);
    void loadVertexNormal(const AsePoint& read, int run);
    void getObjectData(AseFile& file, int run);
    void getVertices(AseFile& file, int run);
    void getFaces(AseFile& file, int run);
    void addFirstLayer(const AseCorners& read);
    void addSecondLayer(const AseCorners& read, int face);
    void getTextureFaces(AseFile& file, int run);

    AseCounts declared;                // by the first file
    std::array<int, 2> anzMaterial{};  // per file
    bool calc_normals;
};
