#include "3d/matrix.h"

#include "3d/plane.h"
#include "tests/support/capture.h"
#include "tests/support/geometry.h"
#include "tests/support/window.h"

#include <algorithm>
#include <iostream>

namespace {

const Vector4 heading = direction(0.6f, 0, 0.8f);
const Vector4 up = direction(0, 1, 0);
const Point4 somewhere = place(1, 2, 3);

Matrix4 unit() {
    return Matrix4(MATRIX_UNIT);
}

Matrix4 fromRows(const float (&rows)[4][4]) {
    Matrix4 result = unit();
    for (int i = 0; i < 4; ++i) std::copy_n(rows[i], 4, result.m[i]);
    return result;
}

TEST(Matrix4, FrameCarriesModelsToTheirPlace) {
    const Matrix4 frame(somewhere, heading, up);
    EXPECT_THAT(frame ^ direction(0, 0, 1), IsNear(1.6f, 2, 3.8f, 1)) << "z is the heading";
    EXPECT_THAT(frame ^ direction(0, 1, 0), IsNear(1, 3, 3, 1)) << "y is up";
    EXPECT_THAT(frame ^ place(1, 0, 0), IsNear(1.8f, 2, 2.4f, 1)) << "x is up x heading";
    EXPECT_EQ(frame.getZ() + frame.getTranslation(), Vector4(1.6f, 2, 3.8f, 0));
}

TEST(Matrix4, RowReadingTurnsAsVectorsDo) {
    const Vector4 v = direction(1, 2, 3);
    EXPECT_THAT(unit().scale(7).rotate(0.3f, 0.5f, 0.7f) * v,
                IsNear(Vector4(v).rotateZ(0.7f).rotateY(0.5f).rotateX(0.3f)))
        << "a turn starts anew, x outermost";
    EXPECT_THAT(unit().scale(2, 3, 4).translate(v) * place(1, 1, 1), IsNear(3, 5, 7, 1));
    const Matrix4 columns(direction(1, 2, 3), direction(4, 5, 6), direction(7, 8, 9));
    EXPECT_EQ(columns * Point4(0, 1, 0, 9), place(4, 5, 6));
    EXPECT_EQ(columns ^ Point4(0, 1, 0, 9), place(2, 5, 8));
}

TEST(Matrix4, ProductAppliesTheLeftOneFirst) {
    const Matrix4 a(somewhere, heading, up);
    const Matrix4 b(place(-4, 0, 1), up, direction(1, 0, 0));
    EXPECT_THAT((a * b) ^ place(5, 6, 7), IsNear(b ^ (a ^ place(5, 6, 7))));
    Matrix4 squared = a;
    EXPECT_THAT((squared *= squared) ^ place(5, 6, 7), IsNear(a ^ (a ^ place(5, 6, 7))));
    const Matrix4 dots = Matrix4(up, heading, somewhere) ^ Matrix4(up, direction(7, 5, 9), heading);
    EXPECT_FLOAT_EQ(dots.m[0][1], 5);
    EXPECT_FLOAT_EQ(dots.m[2][1], 44);
}

TEST(Matrix4, InverseUndoesTheMatrix) {
    for (const Matrix4& m :
         {Matrix4(place(100, -20, 0.5f), heading, up), unit().scale(2, -3, 0.25f).translate(up),
          fromRows({{0, 0, 2, 0}, {3, 0, 0, 0}, {0, 0, 0, 5}, {0, 7, 0, 0}}),
          fromRows({{1, 1, 0, 0}, {1, 1, 1, 0}, {0, 1, 1, 1}, {0, 0, 1, 2}})}) {
        const Matrix4 product = m * Matrix4(m).invert();
        for (int i = 0; i < 16; ++i) EXPECT_NEAR(product.m[i / 4][i % 4], i % 5 == 0, 1e-5f) << m;
    }
}

TEST(Matrix4, WhatHasNoInverseStaysAndIsReported) {
    const Matrix4 flat = fromRows({{1, 2, 3, 4}, {5, 6, 7, 1}, {0, 0, 0, 0}, {9, 1, 2, 3}});
    Matrix4 spoiled = unit();
    spoiled.m[3][3] = NAN;
    for (const auto& [matrix, reason] :
         {std::pair(flat, "divide by zero"), std::pair(spoiled, "invalid pivot value (> 1)")}) {
        Capture errors(std::cerr);
        const Matrix4 tried = Matrix4(matrix).invert();
        EXPECT_EQ(errors.text(), std::string("ERROR (3D): Matrix4::invert: ") + reason + "\n");
        for (int i = 0; i < 3; ++i) EXPECT_TRUE(std::ranges::equal(tried.m[i], matrix.m[i]));
    }
}

TEST(Matrix4, ShadowsFallOnThePlaneAwayFromTheLight) {
    const Vector4 ground(0, 1, 0, 2);  // y = -2
    const Point4 far_light(1, 1, 0, 0);
    EXPECT_THAT((Matrix4(place(0, 2, 0), ground) ^ place(1, 0, 3)).homogenize(),
                IsNear(2, -2, 6, 1));
    EXPECT_THAT((Matrix4(far_light, ground) ^ place(5, 0, 3)).homogenize(), IsNear(3, -2, 3, 1));
}

TEST(Matrix4, ReadsWhatOpenGLHolds) {
    window();
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(-1, 2, -3, 4, 5, 6);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glTranslatef(10, 0, 0);
    glRotatef(90, 0, 0, 1);
    const Matrix4 clip(MATRIX_GL_FRUSTUM);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);

    // What the view calls x is -y + 10 in the world, and its y is the world's x.
    const Plane sides[] = {clip.getLeftPlane(), clip.getRightPlane(), clip.getBottomPlane(),
                           clip.getTopPlane(),  clip.getFrontPlane(), clip.getBackPlane()};
    const Point4 beyond[] = {place(0, 11.1f, -5.5f), place(0, 7.9f, -5.5f), place(-3.1f, 9, -5.5f),
                             place(4.1f, 9, -5.5f),  place(0, 9, -4.9f),    place(0, 9, -6.1f)};
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 6; ++j) EXPECT_EQ(sides[i].isInside(beyond[j]), i != j) << i << j;
    }
}

}  // namespace
