#include "3d/ase_object.h"

#include "tests/support/models.h"

using testing::ElementsAre;
using testing::StartsWith;
using OneFile = Models;

namespace {

/// A material with so many sub-materials, 0 for a plain one.
std::string material(int num_sub) {
    std::string text = "*MATERIAL 0 {\n*NUMSUBMTLS " + std::to_string(num_sub) + "\n";
    for (int i = 0; i < num_sub; ++i) text += "*SUBMATERIAL 0 {\n*MATERIAL_DIFFUSE 1 0 0\n}\n";
    return text + "}\n";
}

}  // namespace

TEST_F(OneFile, FillsTheTables) {
    text.vertices = text.vertex("1.0\t2.0 3.0") + text.vertex("-1e1 +.5 0") + text.vertex("0 0 1");
    text.tverts = "*MESH_TVERT 0 0.25 0.75 9\n*MESH_TVERT 1 1 0 0\n";
    text.faces = text.face(0, 1, 2) + text.face(2, 1, 0);
    text.tfaces = "*MESH_TFACE 1 1 0 1\n*MESH_TFACE 2 0 0 0\n*MESH_TFACE -1 0 0 0\n";
    // No more than 99 characters go with an unknown token; behind them tokens count again.
    for (const int length : {60, 98})
        text.rest += "*COMMENT " + std::string(length, 'x') + " *MESH_VERTEX 3 4 4 4\n";
    text.rest += "*GEOMOBJECT {\n" + text.vertices + text.faces;
    const Capture log(std::cerr);
    const auto model = load(text);
    EXPECT_THAT(model.getVertex(0), IsNear(1, 3, -2, 1)) << "z points up in the file";
    EXPECT_THAT(model.getVertex(1), IsNear(-10, 0, -0.5, 1));
    EXPECT_EQ(model.getAnzVertex(), 4) << "one behind the long line, none of the second object";
    EXPECT_EQ(model.getTVertex(0), Vector2(0.25f, 0.75f));
    EXPECT_THAT(model.getFace(1).vertInd, ElementsAre(2, 1, 0));
    EXPECT_THAT(model.getFace(1).tVertInd1, ElementsAre(1, 0, 1));
    std::string lines = "ERROR (3D): AseObject::load: invalid number of objects\n";
    for (int i = 0; i < 6; ++i) lines += "ERROR (3D): AseObject::getData: invalid TFACE index\n";
    EXPECT_EQ(log.text(), lines);
}

TEST_F(OneFile, FacesFindTheirMaterial) {
    const std::string count = "*MATERIAL_COUNT 2\n", plain = count + material(0) + material(0);
    const std::string nested = count + material(4) + material(2);
    using Case = std::tuple<std::string, std::string, std::string, int, bool>;
    text.tfaces = "";
    for (const auto& [materials, reference, id, index, found] :
         {Case{nested, "1", "*MESH_MTLID 1", 5, true},
          {nested, "1", "", 4, true},
          {nested, "1", "*MESH_MTLID 5", 9, false},
          {count + material(4) + material(0), "1", "", 4, false},
          {plain, "1", "*MESH_MTLID 7", 1, true},
          {plain, "-1", "", -1, false},
          {material(0), "0", "", 0, false}}) {
        text.materials = materials;
        text.reference = "*MATERIAL_REF " + reference + "\n";
        // The second face's id must not be taken for the first one's.
        text.faces = text.face(0, 1, 2, id) + text.face(0, 1, 2, "*MESH_MTLID 1");
        const Capture log(std::cerr);
        const auto model = load(text);
        EXPECT_EQ(model.getAnzFaces() == 2 && model.getFace(0).matInd1 == index, found);
        const std::string fault = "strange material index " + std::to_string(index) + "\n";
        EXPECT_EQ(log.text().substr(0, log.text().find('\n') + 1),
                  found ? "" : "ERROR (3D): AseObject::getData: " + fault);
    }
}

// The last picture of a material wins; what is said before the first is reported.
TEST_F(OneFile, ReadsMaterials) {
    textured("abc", "", "last");
    text.materials =
        "*MATERIAL_COUNT 2\n*MATERIAL 0\n*MATERIAL_NAME \"*BITMAP\"\n"
        "*UVW_U_TILING 3\n*UVW_V_OFFSET 3\n*MATERIAL_AMBIENT 0.1 0.2 0.3\n"
        "*MATERIAL_DIFFUSE 0.5 nan 0.5\n" +
        textured("abc", "*UVW_U_TILING 5\n*BITMAP \"" + (dir / "last") +
                            "\"\n*UVW_V_TILING 2.0\n*UVW_U_OFFSET 0.5\n");
    const Capture log(std::cerr);
    const auto model = load(text);
    const Material& plain = *model.getMaterial(0);
    EXPECT_FLOAT_EQ(plain.getAmbient()->getBlue(), 0.3f);
    EXPECT_FLOAT_EQ(plain.getDiffuse()->getGreen(), 0.7f) << "as it was";
    const Texture& t = *model.getMaterial(1)->getTexture();
    EXPECT_EQ(t.getFilename(), dir / "last");
    EXPECT_THAT((std::array{t.getUTile(), t.getVTile(), t.getUOffset()}), ElementsAre(1, 2, 0.5f));
    EXPECT_THAT(log.text(), StartsWith("ERROR (3D): AseObject::loadMaterial: cannot set u-tiling"));
    EXPECT_THAT(log.text(),
                testing::HasSubstr("\nERROR (3D): AseObject::loadMaterial: cannot set v-offset"));
}

// Whatever stands in a file, it loads or it fails as promised, and soon.
TEST_F(OneFile, SurvivesFaults) {
    const std::string loads = "nothing thrown", corner = "Comp3DObject::addFace: out of bounds";
    const std::string nothing = "_3DObject::computeCenter: no vertices", many = "2000000000\n";
    const std::string endless(10'000, 'x'), one = "*MATERIAL_COUNT 1\n*MATERIAL 0\n";
    const std::string subs = one + "*NUMSUBMTLS " + many + "*SUBMATERIAL\n";
    std::string binary;
    for (int i = 0; i < 100'000; ++i) binary += static_cast<char>(i * 7919 >> 3);
    const Capture log(std::cerr);
    for (const AseFault& fault : {
             AseFault{&AseText::rest, endless + binary, loads},
             AseFault{&AseText::vertices, text.vertices + text.vertex("nan 1e39 -inf"), loads},
             AseFault{&AseText::faces, text.face(0, 1, 3), corner},
             AseFault{&AseText::faces, text.face(0, -1, 2), corner},
             AseFault{&AseText::counts, "*MESH_NUMVERTEX " + many + "*MESH_NUMFACES -1\n", loads},
             AseFault{&AseText::materials, "*MATERIAL_COUNT " + many + material(0), loads},
             AseFault{&AseText::materials, subs, loads},
             AseFault{&AseText::materials, one + "*BITMAP \"\n", "Image::"},
         })
        EXPECT_THAT(failureOf([&] { load(fault.in(text)); }), StartsWith(fault.failure));
    for (const std::string& file : {std::string(), binary, std::string("*GEOMOBJECT\n")})
        EXPECT_EQ(failureOf([&] { load(file); }), nothing);
    const std::string whole = text;
    for (size_t end = 0; end < whole.size(); end += 3)
        EXPECT_THAT(failureOf([&] { load(whole.substr(0, end)); }),
                    testing::AnyOf(loads, nothing, corner));
    EXPECT_EQ(failureOf([&] { AseObject("/", MTL_TEX_ONLY, BOUNDING_BOX, false); }),
              "AseObject::AseObject: cannot open file for reading (/)");
}
