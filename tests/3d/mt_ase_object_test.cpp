#include "3d/mt_ase_object.h"

#include "tests/support/models.h"

using testing::ElementsAre;
using TwoFiles = Models;

namespace {

const std::string up_normals =
    "*MESH_NORMALS {\n*MESH_FACENORMAL 0 0 1 0\n*MESH_VERTEXNORMAL 0 0 1 0\n"
    "*MESH_VERTEXNORMAL 1 0 1 0\n*MESH_VERTEXNORMAL 2 0 1 0\n";

}  // namespace

TEST_F(TwoFiles, JoinTheirTables) {
    AseText clouds = text;
    text.counts = "*MESH_NUMVERTEX 3\n*MESH_NUMFACES 1\n*MESH_NUMTVERTEX 4\n";
    text.tverts += "*MESH_TVERT 3 1 1 0\n";
    clouds.materials = "*MATERIAL_COUNT 2\n*MATERIAL 0 {\n}\n*MATERIAL 1 {\n}\n";
    clouds.reference = "*MATERIAL_REF 1\n";
    clouds.tfaces = "*MESH_TFACE 0 2 0 1\n*MESH_TFACE 9 0 0 0\n*MESH_TFACE -1 0 0 0\n";
    const auto model = load(text, clouds, false);
    const face_t& face = model.getFace(0);
    EXPECT_THAT(face.tVertInd1, ElementsAre(0, 1, 2));
    EXPECT_THAT(face.tVertInd2, ElementsAre(6, 4, 5));
    EXPECT_EQ(face.matInd1, 0);
    EXPECT_EQ(face.matInd2, 2);
}

// Taken as they stand in the file, unlike the vertices; made from the faces where there are none.
TEST_F(TwoFiles, BringNormals) {
    EXPECT_THAT(load(text, text, false).getNormal(0), IsNear(0, 0, 1, 1));
    text.normals = up_normals;
    const auto given = load(text, text, false), computed = load(text, text, true);
    EXPECT_THAT(given.getNormal(0), IsNear(0, 1, 0, 1));
    EXPECT_EQ(computed.getAnzNormal(), 3) << "not appended once more by the second file";
    EXPECT_THAT(computed.getNormal(0), IsNear(0, 0, 1, 1));
}

TEST_F(TwoFiles, MustNotDiffer) {
    const std::string counts = "MT_AseObject::loadObjectInfo: geometry must be the same";
    const std::string geometry = "MT_AseObject::getData: geometry must be identical";
    const std::string face = "MT_AseObject::loadNormals: face normals must be identical";
    const std::string vertex = "MT_AseObject::loadNormals: vertex normals must be identical";
    const std::string material = "_3DObject::getMaterial: out of bounds";
    const std::string untiled = "*MATERIAL_COUNT 1\n*MATERIAL 0\n*UVW_U_TILING 2\n";
    text.normals = up_normals;
    text.materials = textured("abc");
    for (const AseFault& fault : {
             AseFault{&AseText::counts, "*MESH_NUMVERTEX 4\n", counts},
             AseFault{&AseText::counts, "*MESH_NUMFACES 2\n", counts},
             AseFault{&AseText::vertices, text.vertices + text.vertex("0 0 0"), geometry},
             AseFault{&AseText::vertices, text.vertex("0 0 0.001"), geometry},
             AseFault{&AseText::faces, "", geometry},
             AseFault{&AseText::faces, text.face(1, 2, 0), geometry},
             AseFault{&AseText::faces, text.faces + text.faces, geometry},
             AseFault{&AseText::normals, "*MESH_NORMALS\n*MESH_FACENORMAL 0 0 0 1\n", face},
             AseFault{&AseText::normals, "*MESH_NORMALS\n*MESH_FACENORMAL 9 0 1 0\n", face},
             AseFault{&AseText::normals, "*MESH_NORMALS\n*MESH_VERTEXNORMAL 2 1 0 0\n", vertex},
             AseFault{&AseText::reference, "*MATERIAL_REF -1\n", material},
             AseFault{&AseText::tfaces, "*MESH_TFACE 0 0 0 2147483647\n",
                      "_3DObject::getTexCoord: out of bounds"},
             AseFault{&AseText::materials, untiled, "Material::getTexture: null pointer"},
         })
        EXPECT_EQ(failureOf([&] { load(text, fault.in(text), false); }), fault.failure) << fault.by;
    EXPECT_EQ(failureOf([&] { load(text, "", false); }),
              "MT_AseObject::MT_AseObject:: failed to load (run 2)");
}
