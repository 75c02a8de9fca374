#include "game/background_model.h"

#include "3d/bounding_box.h"
#include "3d/color_rgba.h"
#include "3d/material.h"
#include "3d/matrix.h"
#include "3d/opengl.h"
#include "game/3d_rep.h"
#include "main/log_factory.h"

#include <iostream>

namespace {

constexpr const char* table_picture = "../data/balticgreen.jpg";
constexpr float table_edge = 100;
constexpr float camera_radii = 2;  // between the camera and the middle of the table
constexpr float shadow_rise = 2;   // keeps the shadow off the table

void warn(const char* text) {
    logLine(std::cerr, "WARNING (GAME): ", "BackgroundModel::", text);
}

void reportError(const char* text) {
    logLine(std::cerr, "ERROR (GAME): ", "BackgroundModel::", text);
}

/// On the diagonal of space, looking at the middle of the table.
Camera cameraFor(const _3D_Rep& model) {
    const float distance = camera_radii * model.getTotalBoundingBox().getRadius();
    return Camera(Point4(Vector4(1, 1, 1, 1).normalize() * distance));
}

}  // namespace

BackgroundModel::BackgroundModel(_3D_Rep* m)
    : model(m),
      rotate_axis(0, 1, 0, 1),
      material(std::make_unique<Material>(new ColorRGBA(0.6f, 0.4f, 0.1f, 0.8f))) {
    material->setTexture(table_picture, MTL_TEX_COMBINED, false);
    if (model)
        camera = cameraFor(*model);
    else
        warn("BackgroundModel: null pointer (model)");
    light = OpenGLContext::getInstance()->getLightFactory()->getSpotLight(
        Point4(0, 25, 0, 1), Vector4(0, -1, 0, 1), new ColorRGB(1, 1, 1));
}

BackgroundModel::~BackgroundModel() {
    OpenGLContext::getInstance()->getLightFactory()->deleteLight(*light);
}

void BackgroundModel::setModel(_3D_Rep* m) {
    if (!m) warn("setModel: null pointer");
    model = m;
}

void BackgroundModel::setHeightOffset(float height) {
    if (height < 0) return reportError("setHeightOffset: < 0");
    height_offset = height;
}

void BackgroundModel::setRotateAxis(const Vector4& axis) {
    if (axis.getLength() == 0) return reportError("setRotateAxis: null vector");
    rotate_axis = axis;
}

void BackgroundModel::setMaterial(Material* m) {
    if (!m) return reportError("setMaterial: null pointer");
    static_cast<void>(material.release());  // its taker keeps it
    material.reset(m);
}

void BackgroundModel::setLight(_Light* l) {
    if (!l) return reportError("setLight: null pointer");
    light = l;
}

void BackgroundModel::moveLight(const Vector4& v) {
    light->setPosition(light->getPosition() + v);
}

void BackgroundModel::update(int time_diff) {
    const auto turned = static_cast<long long>(rotate_speed) * time_diff;
    angle += static_cast<float>(static_cast<double>(turned) / 1000.0);
    if (angle > 360) angle -= 360;
    if (angle < 0) angle += 360;
}

// The mirror image is the model upside down below the table. It comes first and the table last, so
// that it shines through the table.
void BackgroundModel::draw(DRWenum draw_mode) const {
    if (!model) return;
    OpenGLContext* gl = OpenGLContext::getInstance();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    camera.activate();
    gl->placeLights();
    if (gl->isLighting()) gl->getLightFactory()->activateLighting();

    if (table_on && reflections_on) drawMirrorImage(draw_mode);
    light->activate(true);
    if (table_on && shadows_on) drawShadow();
    drawModel(draw_mode);
    if (table_on) drawTable(draw_mode);
    glPopMatrix();
}

void BackgroundModel::turnModel() const {
    glRotatef(angle, rotate_axis.x, rotate_axis.y, rotate_axis.z);
}

void BackgroundModel::drawMirrorImage(DRWenum draw_mode) const {
    glPushMatrix();
    glScalef(1, -1, 1);
    light->activate(true);
    turnModel();
    glTranslatef(0, height_offset, 0);
    model->draw(draw_mode);
    glPopMatrix();
}

void BackgroundModel::drawShadow() const {
    OpenGLContext* gl = OpenGLContext::getInstance();
    const Matrix4 shadow_matrix(light->getPosition(), Vector4(0, 1, 0, 1));
    gl->getLightFactory()->deactivateLighting();
    gl->activateBlending();
    glPushMatrix();
    glTranslatef(0, shadow_rise - height_offset, 0);
    glMultMatrixf(shadow_matrix.getFloatp());
    model->draw(DRAW_SHADOW);
    glPopMatrix();
    gl->deactivateBlending();
    if (gl->isLighting()) gl->getLightFactory()->activateLighting();
}

void BackgroundModel::drawModel(DRWenum draw_mode) const {
    glPushMatrix();
    glTranslatef(0, height_offset, 0);
    turnModel();
    model->draw(draw_mode);
    glPopMatrix();
}

void BackgroundModel::drawTable(DRWenum draw_mode) const {
    constexpr float edge = table_edge / 2;
    const OpenGLContext* gl = OpenGLContext::getInstance();
    material->activate(draw_mode > DRAW_PHONG);
    gl->activateBlending();
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);  // a wire model leaves lines behind
    glBegin(GL_QUADS);
    glNormal3f(0, 1, 0);
    glTexCoord2f(0, 0);
    glVertex3f(-edge, 0, edge);
    glTexCoord2f(1, 0);
    glVertex3f(edge, 0, edge);
    glTexCoord2f(1, 1);
    glVertex3f(edge, 0, -edge);
    glTexCoord2f(0, 1);
    glVertex3f(-edge, 0, -edge);
    glEnd();
    gl->deactivateBlending();
}
