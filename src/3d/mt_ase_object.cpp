#include "3d/mt_ase_object.h"

#include "main/exception.h"
#include "main/log_factory.h"

#include <algorithm>
#include <iostream>
#include <limits>
#include <memory>

namespace {

std::unique_ptr<AseFile> openFile(const std::string& filename) {
    auto file = AseFile::open(filename);
    if (file) return file;
    throw Exception("MT_AseObject::MT_AseObject: cannot open file for reading (" + filename + ")");
}

/// `index` behind the first `offset` entries of a joined table. What is no index stays none.
int shifted(int offset, int index) {
    const long long sum = static_cast<long long>(offset) + index;
    return index < 0 || sum > std::numeric_limits<int>::max() ? -1 : static_cast<int>(sum);
}

[[noreturn]] void throwDifferent() {
    throw Exception("MT_AseObject::getData: geometry must be identical");
}

}  // namespace

MT_AseObject::MT_AseObject(const std::string& f1, MTLenum mm1, const std::string& f2, MTLenum mm2,
                           BOUNDINGenum bm, bool n)
    : _AseLoader(mm1, mm2, bm), calc_normals(n) {
    const auto first = openFile(f1);
    const auto second = openFile(f2);
    if (!load(*first, 0)) {
        throw Exception("MT_AseObject::MT_AseObject:: failed to load (run 1)");
    }
    if (!load(*second, 1)) {
        throw Exception("MT_AseObject::MT_AseObject:: failed to load (run 2)");
    }
    init();
}

bool MT_AseObject::load(AseFile& file, int run) {
    if (file.getNumObjects() == 0) return false;
    int& num_materials = anzMaterial[static_cast<std::size_t>(run)];
    num_materials = file.getNumMaterials();
    loadObjectInfo(file, run);
    for (int i = 1; i <= num_materials; ++i) loadMaterial(file, i, run);
    getObjectData(file, run);
    return true;
}

void MT_AseObject::loadObjectInfo(AseFile& file, int run) {
    if (run == 0) {
        file.getCounts(declared);
        reserve(file, declared);
        return;
    }
    AseCounts second = declared;
    file.getCounts(second);
    if (second.vertices != declared.vertices || second.faces != declared.faces) {
        throw Exception("MT_AseObject::loadObjectInfo: geometry must be the same");
    }
}

void MT_AseObject::loadMaterial(AseFile& file, int index, int run) {
    const int num_sub_materials = file.getNumSubMaterials(index);
    const MTLenum mode = getMaterialMode(run);
    loadSubMaterials(file, index, num_sub_materials, mode, TILING_THROWN);
    if (num_sub_materials == 0) loadPlainMaterial(file, index, mode, TILING_THROWN);
}

void MT_AseObject::getObjectData(AseFile& file, int run) {
    getVertices(file, run);
    getTVertices(file);
    getMaterialReference(file);
    getFaces(file, run);
    getTextureFaces(file, run);

    if (!calc_normals) loadNormals(file, run);
    const bool complete = (!calc_normals || run == 1) && getAnzNormal() == getAnzVertex();
    if (!complete) {
        computeFaceNormals();
        computeVertexNormals();
    }
    if (run == 0) computeCenter();
}

void MT_AseObject::getVertices(AseFile& file, int run) {
    AsePoint point;
    int num = 0;
    file.getData("*MESH_VERTEX", [&] {
        point.read(file);
        if (run == 0) {
            addVertex(point.asVertex());
        } else if (num >= getAnzVertex() || !(getVertex(num) == point.asVertex())) {
            throwDifferent();
        }
        ++num;
    });
    if (num != getAnzVertex()) throwDifferent();
}

void MT_AseObject::getFaces(AseFile& file, int run) {
    AseCorners read;
    int num = 0;
    file.getData("*MESH_FACE", [&] {
        read.readFace(file);
        if (run == 0) {
            addFirstLayer(read);
        } else {
            addSecondLayer(read, num);
        }
        ++num;
    });
    if (run == 1 && num != getAnzFaces()) throwDifferent();
}

void MT_AseObject::addFirstLayer(const AseCorners& read) {
    if (mat_ref < 0 || mat_ref >= getAnzMaterial()) return;
    face_t face;
    face.vertInd.assign(read.corners.begin(), read.corners.end());
    face.tVertInd1.assign(read.corners.size(), 0);
    face.tVertInd2.assign(read.corners.size(), 0);
    face.multi_tex = true;
    face.matInd1 = mat_ref;
    addFace(std::move(face));
}

void MT_AseObject::addSecondLayer(const AseCorners& read, int face) {
    if (face >= getAnzFaces()) throwDifferent();
    const std::vector<int>& corners = getFace(face).vertInd;
    if (!std::equal(corners.begin(), corners.end(), read.corners.begin(), read.corners.end())) {
        throwDifferent();
    }
    editFace(face).matInd2 = shifted(anzMaterial[0], mat_ref);
}

void MT_AseObject::getTextureFaces(AseFile& file, int run) {
    AseCorners read;
    file.getData("*MESH_TFACE", [&] {
        read.readTextureFace(file);
        if (read.index < 0 || read.index >= getAnzFaces()) return;
        face_t& face = editFace(read.index);
        if (run == 0) {
            face.tVertInd1.assign(read.corners.begin(), read.corners.end());
            return;
        }
        std::transform(read.corners.begin(), read.corners.end(), face.tVertInd2.begin(),
                       [this](int i) { return shifted(declared.texture_vertices, i); });
    });
}

void MT_AseObject::loadNormals(AseFile& file, int run) {
    file.moveToObject(1);
    file.moveToNext("*MESH_NORMALS");
    AsePoint read;
    std::string_view token;
    while (file.getToken(token) && token != AseFile::geometry_object) {
        if (token == "*MESH_FACENORMAL") {
            read.read(file);
            loadFaceNormal(read, run);
        } else if (token == "*MESH_VERTEXNORMAL") {
            read.read(file);
            loadVertexNormal(read, run);
        } else {
            file.dropLine();
        }
    }
}

void MT_AseObject::loadFaceNormal(const AsePoint& read, int run) {
    const bool valid = read.index >= 0 && read.index < getAnzFaces();
    if (run == 1) {
        if (valid && getFace(read.index).normal == read.asNormal()) return;
        throw Exception("MT_AseObject::loadNormals: face normals must be identical");
    }
    if (!valid) {
        logLine(std::cerr, "ERROR (3D): ", "AseObject::loadNormals: invalid FACE_NORMAL index");
        return;
    }
    setFaceNormal(editFace(read.index), read.asNormal());
}

void MT_AseObject::loadVertexNormal(const AsePoint& read, int run) {
    if (run == 0) {
        addNormal(read.index, read.asNormal());
        return;
    }
    const bool valid = read.index >= 0 && read.index < getAnzNormal();
    if (valid && getNormal(read.index) == read.asNormal()) return;
    throw Exception("MT_AseObject::loadNormals: vertex normals must be identical");
}
