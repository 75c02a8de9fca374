#include "3d/matrix.h"

#include "tests/support/capture.h"
#include "tests/support/geometry.h"

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

TEST(Matrix4, ProductAppliesTheLeftOneFirst) {
    const Matrix4 a(somewhere, heading, up);
    const Matrix4 b(place(-4, 0, 1), up, direction(1, 0, 0));
    EXPECT_THAT((a * b) ^ place(5, 6, 7), IsNear(b ^ (a ^ place(5, 6, 7))));
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
    const Capture errors(std::cerr);
    const Matrix4 tried = Matrix4(flat).invert();
    EXPECT_EQ(errors.text(), "ERROR (3D): Matrix4::invert: divide by zero\n");
    EXPECT_TRUE(std::equal(tried.m[0], tried.m[0] + 16, flat.m[0]));
}

}  // namespace
