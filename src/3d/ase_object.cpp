#include "3d/ase_object.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

AseObject::AseObject(const std::string& filename, MTLenum mtl_mode, BOUNDINGenum bounding_mode,
                     bool /*calc_normals*/)
    : _AseLoader(mtl_mode, bounding_mode) {
    const auto file = AseFile::open(filename);
    if (!file) {
        throw Exception("AseObject::AseObject: cannot open file for reading (" + filename + ")");
    }
    load(*file);
}

void AseObject::load(AseFile& file) {
    if (file.getNumObjects() != 1) {
        logLine(std::cerr, "ERROR (3D): ", "AseObject::load: invalid number of objects");
    }
    const int num_materials = file.getNumMaterials();
    anzSubMaterial.assign(static_cast<std::size_t>(num_materials), 0);
    loadObjectInfo(file);
    for (int i = 1; i <= num_materials; ++i) loadMaterial(file, i);
    getObjectData(file);
    init();
}

void AseObject::loadObjectInfo(AseFile& file) {
    AseCounts declared;
    file.getCounts(declared);
    reserve(file, declared);
}

void AseObject::loadMaterial(AseFile& file, int index) {
    const int num_sub_materials = file.getNumSubMaterials(index);
    anzSubMaterial[static_cast<std::size_t>(index - 1)] = num_sub_materials;
    if (num_sub_materials > 0) hasSubMaterials = true;

    const MTLenum mode = getMaterialMode(0);
    loadSubMaterials(file, index, num_sub_materials, mode, TILING_REPORTED);
    if (!hasSubMaterials) loadPlainMaterial(file, index, mode, TILING_REPORTED);
}

void AseObject::getObjectData(AseFile& file) {
    getVertices(file);
    getTVertices(file);
    getMaterialReference(file);
    getFaces(file);
    getTextureFaces(file);
    computeFaceNormals();
    computeVertexNormals();
    computeCenter();
}

void AseObject::getVertices(AseFile& file) {
    AsePoint point;
    file.getData("*MESH_VERTEX", [&] {
        point.read(file);
        addVertex(point.asVertex());
    });
}

void AseObject::getFaces(AseFile& file) {
    AseCorners read;
    file.getData("*MESH_FACE", [&] {
        read.readFace(file);
        const bool listed =
            mat_ref >= 0 && static_cast<std::size_t>(mat_ref) < anzSubMaterial.size();
        const long long material = listed ? getMaterialIndex(file) : mat_ref;
        if (!listed || material < 0 || material >= getAnzMaterial()) {
            logLine(std::cerr, "ERROR (3D): ", "AseObject::getData: strange material index ",
                    material);
            return;
        }
        face_t face;
        face.vertInd.assign(read.corners.begin(), read.corners.end());
        face.tVertInd1.assign(read.corners.size(), 0);
        face.matInd1 = static_cast<int>(material);
        addFace(std::move(face));
    });
}

long long AseObject::getMaterialIndex(AseFile& file) const {
    const auto own = anzSubMaterial.begin() + mat_ref;
    long long index = 0;
    for (auto before = anzSubMaterial.begin(); before != own; ++before) {
        index += *before > 0 ? *before : 1;
    }
    if (*own == 0) return index;
    int id = 0;
    if (file.moveToFaceMaterial()) file.getNumbers(id);
    return index + id;
}

void AseObject::getTextureFaces(AseFile& file) {
    AseCorners read;
    file.getData("*MESH_TFACE", [&] {
        read.readTextureFace(file);
        if (read.index >= 0 && read.index < getAnzFaces()) {
            editFace(read.index).tVertInd1.assign(read.corners.begin(), read.corners.end());
            return;
        }
        for (std::size_t i = 0; i < read.corners.size(); ++i) {
            logLine(std::cerr, "ERROR (3D): ", "AseObject::getData: invalid TFACE index");
        }
    });
}
