#include "3d/3d_object.h"

#include "3d/bounding_box.h"
#include "3d/bounding_sphere.h"
#include "tests/support/models.h"

using testing::ElementsAre;
using Drawn = Models;

TEST_F(Drawn, SurroundsItself) {
    const auto boxed = load(text), round = load(text, BOUNDING_SPHERE);
    EXPECT_THAT(boxed.getCenter(), IsNear(1, 1, 0, 1));
    const BoundingBox box(*boxed.getBoundingObject());
    EXPECT_THAT((std::array{box.getVX(), box.getVY(), box.getVZ()}), ElementsAre(1, 1, 0));
    EXPECT_FLOAT_EQ(BoundingSphere(*round.getBoundingObject()).getRadius(), 1);
}

// A mean of directions, fresh for each vertex; what has no direction stays without one.
TEST_F(Drawn, NormalsOfFacesAndVertices) {
    text.vertices += text.vertex("0 3 0") + text.vertex("9 9 9") + text.vertex("0 -3 0") +
                     text.vertex("1 -3 0") + text.vertex("0 -3 1");
    text.faces += text.face(0, 1, 3) + text.face(2, 2, 2) + text.face(5, 6, 7);
    const auto model = load(text);
    EXPECT_THAT(model.getFace(0).normal, IsNear(0, 0, 1, 1));
    EXPECT_THAT(model.getFace(1).normal, IsNear(0, 1, 0, 1));
    EXPECT_THAT(model.getFace(2).normal, IsNear(0, 0, 0, 1)) << "no area";
    EXPECT_FLOAT_EQ(model.getFace(3).d, -3);
    EXPECT_THAT(model.getNormal(0), IsNear(0, 0.707107f, 0.707107f, 1));
    EXPECT_THAT(model.getNormal(3), IsNear(0, 1, 0, 1));
    EXPECT_THAT(model.getNormal(4), IsNear(0, 0, 0, 1)) << "in no face";
}

// A shadow is unlit and blended, and leaves no blending behind.
TEST_F(Drawn, EveryModeShowsTheModel) {
    text.materials = "*MATERIAL_COUNT 1\n*MATERIAL 0\n*MATERIAL_DIFFUSE 1 0 0\n";
    const auto model = load(text);
    glEnable(GL_LIGHTING);
    for (const DRWenum mode : {DRAW_SHADOW, DRAW_WIRE, DRAW_FLAT, DRAW_PHONG, DRAW_MULTITEX}) {
        stage.clear();
        model.draw(mode);
        EXPECT_THAT(stage.at(0.5, 0.5), ElementsAre(mode == DRAW_WIRE ? 0 : 255, 0, 0)) << mode;
        EXPECT_FALSE(glIsEnabled(GL_LIGHTING) || glIsEnabled(GL_BLEND));
    }
}

// The lamp hangs above: a face that looks at the viewer is dark, a corner that looks up is not.
TEST_F(Drawn, FlatTakesTheNormalOfTheFace) {
    text.normals = "*MESH_NORMALS\n*MESH_FACENORMAL 0 0 0 1\n*MESH_VERTEXNORMAL 0 0 1 0\n";
    const auto model = load(text, text, false);
    OpenGLContext::getInstance()->setLighting(true);
    for (const DRWenum mode : {DRAW_FLAT, DRAW_PHONG}) {
        OpenGLContext::getInstance()->startFrame(false);
        model.draw(mode);
        EXPECT_EQ(stage.at(0.1, 0.1)[0] > 100, mode == DRAW_PHONG);
    }
}

// Tiling and offset are part of the compiled list.
TEST_F(Drawn, TilesAndShiftsItsTexture) {
    for (const std::string offset : {"0", "0.5"}) {
        text.materials =
            textured("\xff\x01\x01\x01\x01\x01", "*UVW_U_TILING 2\n*UVW_U_OFFSET " + offset + "\n");
        stage.clear();
        load(text).draw(DRAW_TEXTURE);
        for (const int half : {0, 1, 2})
            EXPECT_EQ(stage.at(0.25 + half / 2., 0.1)[0] > 128, (half % 2 == 0) == (offset == "0"));
    }
}

// The second layer hides the first where both are drawn, and only there.
TEST_F(Drawn, TwoLayers) {
    AseText clouds = text;
    text.materials = textured("\xff\x01\x01");
    clouds.materials = textured("\x01\x01\xff", "", "clouds");
    const auto shaded = load(text, clouds, false), bare = load(text, AseText(), false);
    const auto shown = [&](const MT_AseObject& model, DRWenum mode) {
        stage.clear();
        model.draw(mode);
        return stage.at(0.5, 0.5);
    };
    EXPECT_THAT(shown(shaded, DRAW_TEXTURE), ElementsAre(255, 1, 1));
    EXPECT_THAT(shown(shaded, DRAW_MULTITEX), ElementsAre(1, 1, 255));
    EXPECT_THAT(shown(bare, DRAW_MULTITEX), ElementsAre(255, 1, 1));
    glActiveTexture(GL_TEXTURE1);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D)) << "the second unit does not stay on";
    glActiveTexture(GL_TEXTURE0);
}

// An index in no table stops the load; OpenGL must not stay inside a list or a polygon.
TEST_F(Drawn, FailureEndsTheList) {
    glGetError();
    text.materials = textured("abc");
    text.tfaces = "*MESH_TFACE 0 0 1 3\n";
    EXPECT_EQ(failureOf([&] { load(text); }), "_3DObject::getTexCoord: out of bounds");
    glNewList(glGenLists(1), GL_COMPILE);  // an error within a list
    glEndList();
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}
