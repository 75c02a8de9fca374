#include "3d/space_bg.h"

#include "3d/camera_interface.h"
#include "3d/list_compilation.h"
#include "3d/opengl.h"
#include "3d/texture_factory.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <iostream>

namespace {

constexpr GLsizei num_draw_modes = DRAW_SHADOW + 1;

/// One corner of the box: where its picture stands, and its place in a box with edges of length 2.
struct Corner {
    float u, v;
    float x, y, z;
};

constexpr Corner faces[6][4] = {
    {{0.33f, 0.5f, -1, -1, -1},
     {0.66f, 0.5f, -1, 1, -1},
     {0.66f, 1, 1, 1, -1},
     {0.33f, 1, 1, -1, -1}},
    {{0.66f, 0, -1, -1, 1}, {1, 0, -1, 1, 1}, {1, 0.5f, 1, 1, 1}, {0.66f, 0.5f, 1, -1, 1}},
    {{0.66f, 0.5f, 1, -1, -1}, {1, 0.5f, 1, 1, -1}, {1, 1, 1, 1, 1}, {0.66f, 1, 1, -1, 1}},
    {{0, 0.5f, -1, -1, -1}, {0.33f, 0.5f, -1, 1, -1}, {0.33f, 1, -1, 1, 1}, {0, 1, -1, -1, 1}},
    {{0, 0, -1, 1, -1}, {0.33f, 0, -1, 1, 1}, {0.33f, 0.5f, 1, 1, 1}, {0, 0.5f, 1, 1, -1}},
    {{0.33f, 0, -1, -1, -1},
     {0.66f, 0, -1, -1, 1},
     {0.66f, 0.5f, 1, -1, 1},
     {0.33f, 0.5f, 1, -1, -1}},
};

std::unique_ptr<Material> loadMaterial(const std::string& texture) {
    try {
        return std::make_unique<Material>(texture, MTL_TEX_DECAL, false);
    } catch (const Exception& reason) {
        logLine(std::cerr, "ERROR (3D): ", reason.getMessage());
        throw Exception("SpaceBG::SpaceBG: could not create material");
    }
}

bool isTextured(DRWenum mode) {
    return mode == DRAW_TEXTURE || mode == DRAW_MULTITEX;
}

}  // namespace

SpaceBG::SpaceBG(float s, const std::string& texture)
    : size(s), mat(loadMaterial(texture)), displayList(num_draw_modes) {
    for (int mode = DRAW_WIRE; mode <= DRAW_SHADOW; ++mode)
        initDisplayList(static_cast<DRWenum>(mode));
}

SpaceBG::~SpaceBG() {
    TextureFactory::getInstance()->releaseTexObject(mat->getTexture()->getFilename());
}

void SpaceBG::initDisplayList(DRWenum mode) const {
    const ListCompilation list(displayList.getFirst() + mode);
    const bool textured = isTextured(mode) && mat->hasTexture();
    if (textured)
        mat->activate(true);
    else
        glDisable(GL_TEXTURE_2D);  // the last frame may have left a picture behind
    glPolygonMode(GL_FRONT_AND_BACK, textured ? GL_FILL : GL_LINE);
    glDepthMask(GL_FALSE);
    drawFaces();
    glDepthMask(GL_TRUE);
}

void SpaceBG::drawFaces() const {
    const float h = 0.5f * size;
    glBegin(GL_QUADS);
    for (const auto& face : faces) {
        for (const Corner& corner : face) {
            glTexCoord2f(corner.u, corner.v);
            glVertex3f(corner.x * h, corner.y * h, corner.z * h);
        }
    }
    glEnd();
}

void SpaceBG::draw(DRWenum mode) const {
    const _CameraInterface* camera = OpenGLContext::getInstance()->getCurrentCamera();
    if (!camera) return;
    const Point4 eye = camera->getPosition();
    glPushMatrix();
    glTranslatef(eye.x, eye.y, eye.z);
    glCallList(displayList.getFirst() + mode);
    glPopMatrix();
}
