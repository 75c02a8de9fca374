#pragma once

#include "3d/ase_loader.h"

#include <string>
#include <vector>

/// The model in one ASE file, the text export of 3D Studio Max: the first geometry object of the
/// file with its materials. Complete, with all display lists, when the constructor returns.
class AseObject final : public _AseLoader {
public:
    /// Throws Exception when the file cannot be read, holds no vertices, or names vertices, texture
    /// vertices or pictures that do not exist. The normals are computed from the faces in any case:
    /// `calc_normals` is for models of two files, whose normals may come from there.
    AseObject(const std::string& filename, MTLenum mtl_mode, BOUNDINGenum bounding_mode,
              bool calc_normals);

private:
    void load(AseFile& file);
    void loadObjectInfo(AseFile& file);
    void loadMaterial(AseFile& file, int index);
    void getObjectData(AseFile& file);
    void getVertices(AseFile& file);
    void getFaces(AseFile& file);
    void getTextureFaces(AseFile& file);
    /// Where the material of the face that was just read stands in the table, if it does.
    long long getMaterialIndex(AseFile& file) const;

    std::vector<int> anzSubMaterial;  // per material of the file, 0 for a plain one
    bool hasSubMaterials = false;     // from the first such material on
};
