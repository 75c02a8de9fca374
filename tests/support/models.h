#pragma once

#include "3d/ase_object.h"
#include "3d/mt_ase_object.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/geometry.h"
#include "tests/support/picture.h"
#include "tests/support/stage.h"
#include "tests/support/temp_dir.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <string>

/// A small model file, written the way an exporter does. As it stands: one plain material and one
/// triangle, (0, 0, 0), (2, 0, 0), (0, 2, 0) in the game. Tests exchange the pieces.
struct AseText {
    std::string materials = "*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_DIFFUSE 1 1 1\n}\n";
    std::string counts = "*MESH_NUMVERTEX 3\n*MESH_NUMFACES 1\n*MESH_NUMTVERTEX 3\n";
    std::string vertices = vertex("0 0 0") + vertex("2 0 0") + vertex("0 0 2");
    std::string tverts = "*MESH_TVERT 0 0 0 0\n*MESH_TVERT 1 1 0 0\n*MESH_TVERT 2 0 1 0\n";
    std::string faces = face(0, 1, 2);
    std::string tfaces = "*MESH_TFACE 0 0 1 2\n";
    std::string normals = {};
    std::string reference = "*MATERIAL_REF 0\n";
    std::string rest = {};

    operator std::string() const { return toString(); }
    std::string toString() const {
        return "*3DSMAX_ASCIIEXPORT\t200\n" + materials + "*GEOMOBJECT {\n*NODE_NAME \"thing\"\n" +
               counts + vertices + faces + tverts + tfaces + normals + "}\n" + reference + rest;
    }
    static std::string vertex(const std::string& xyz) { return "\t*MESH_VERTEX 0\t" + xyz + "\n"; }
    static std::string face(int a, int b, int c, const std::string& behind = "") {
        return "\t*MESH_FACE  0:    A:    " + std::to_string(a) + " B:    " + std::to_string(b) +
               " C:    " + std::to_string(c) + " AB:    1 BC:    1 CA:    1\t " + behind + "\n";
    }
};

/// One piece of a good file exchanged, and the failure that this must lead to.
struct AseFault {
    std::string AseText::*piece;
    std::string by, failure;

    AseText in(AseText good) const {
        good.*piece = by;
        return good;
    }
};

/// Model files in a folder of their own, a stage to draw them on, and a good text to begin with.
class Models : public testing::Test {
protected:
    AseObject load(const std::string& model, BOUNDINGenum bounding = BOUNDING_BOX) const {
        return AseObject(dir.write("1.ASE", model), MTL_TEX_ONLY, bounding, false);
    }
    MT_AseObject load(const std::string& first, const std::string& second, bool calc) const {
        return MT_AseObject(dir.write("1.ASE", first), MTL_TEX_ONLY, dir.write("2.ASE", second),
                            MTL_TEX_DECAL, BOUNDING_SPHERE, calc);
    }
    /// A material with a picture of one column for each colour, and lines about the picture.
    std::string textured(const std::string& rgb, const std::string& behind = "",
                         const std::string& name = "picture") const {
        const std::string image = picture::ppm(static_cast<int>(rgb.size()) / 3, 1, rgb);
        return "*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_DIFFUSE 1 1 1\n*BITMAP \"" +
               dir.write(name, image) + "\"\n" + behind + "}\n";
    }

    const Stage stage;
    const TempDir dir;
    AseText text;
};
