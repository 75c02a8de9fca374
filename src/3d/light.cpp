#include "3d/light.h"

#include "3d/color_rgba.h"
#include "3d/glut.h"
#include "3d/opengl.h"
#include "main/exception.h"

_Light::_Light(GLenum l, const Point4& p, ColorRGB* d, ColorRGB* a, ColorRGB* s)
    : position(p), light(l) {
    ambient = a ? hold(a) : std::make_shared<ColorRGBA>(0.f, 0.f, 0.f, 0.f);
    diffuse = d ? hold(d) : std::make_shared<ColorRGBA>();
    if (s)
        specular = hold(s);
    else if (d)
        specular = std::make_shared<ColorRGB>(d->getRed(), d->getGreen(), d->getBlue());
    else
        specular = std::make_shared<ColorRGBA>();

    send(GL_AMBIENT, *ambient);
    send(GL_DIFFUSE, *diffuse);
    send(GL_SPECULAR, *specular);
    setAttenuation(const_att, lin_att, quadr_att);
}

_Light::~_Light() {
    glDisable(light);
}

void _Light::setPosition(const Point4& p) {
    position = p;
    sendPosition();
}

void _Light::setAmbient(ColorRGB* a) {
    replace(ambient, a, GL_AMBIENT, "_Light::setAmbient");
}

void _Light::setDiffuse(ColorRGB* d) {
    replace(diffuse, d, GL_DIFFUSE, "_Light::setDiffuse");
}

void _Light::setSpecular(ColorRGB* s) {
    replace(specular, s, GL_SPECULAR, "_Light::setSpecular");
}

void _Light::setAttenuation(float c, float l, float q) {
    setConstAtt(c);
    setLinAtt(l);
    setQuadrAtt(q);
}

void _Light::setConstAtt(float c) {
    const_att = c;
    glLightf(light, GL_CONSTANT_ATTENUATION, c);
}

void _Light::setLinAtt(float l) {
    lin_att = l;
    glLightf(light, GL_LINEAR_ATTENUATION, l);
}

void _Light::setQuadrAtt(float q) {
    quadr_att = q;
    glLightf(light, GL_QUADRATIC_ATTENUATION, q);
}

bool _Light::isActivated() const {
    return glIsEnabled(light) == GL_TRUE;
}

void _Light::deactivate() const {
    if (isActivated()) glDisable(light);
}

bool _Light::isWanted() const {
    return on && OpenGLContext::getInstance()->isLighting();
}

void _Light::place() const {
    if (!isActivated()) glEnable(light);
    sendPosition();
}

void _Light::sendPosition() const {
    GLfloat coordinates[4];
    position.getFloat4p(coordinates);
    glLightfv(light, GL_POSITION, coordinates);
}

void _Light::startGlow() const {
    constexpr GLfloat black[] = {0, 0, 0, 1};
    GLfloat glow[4];
    diffuse->getRGBA(glow);
    glDisable(GL_TEXTURE_2D);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glMaterialfv(GL_FRONT, GL_EMISSION, glow);
    glMaterialfv(GL_FRONT, GL_AMBIENT, black);
    glMaterialfv(GL_FRONT, GL_DIFFUSE, black);
}

void _Light::endGlow() const {
    constexpr GLfloat black[] = {0, 0, 0, 1};
    glMaterialfv(GL_FRONT, GL_EMISSION, black);
}

void _Light::drawBall() const {
    constexpr double radius = 0.75;
    constexpr int segments = 10;
    initGlut();
    const Point4 place = Point4(position).homogenize();
    glPushMatrix();
    glTranslatef(place.x, place.y, place.z);
    glutSolidSphere(radius, segments, segments);
    glPopMatrix();
}

std::shared_ptr<ColorRGB> _Light::hold(ColorRGB* color) const {
    for (const auto& field : {ambient, diffuse, specular})
        if (field.get() == color) return field;
    return std::shared_ptr<ColorRGB>(color);
}

void _Light::replace(std::shared_ptr<ColorRGB>& field, ColorRGB* color, GLenum component,
                     const char* origin) {
    if (!color) throw Exception(std::string(origin) + ": null pointer");
    field = hold(color);
    send(component, *field);
}

void _Light::send(GLenum component, const ColorRGB& color) const {
    GLfloat rgba[4];
    color.getRGBA(rgba);
    glLightfv(light, component, rgba);
}

std::ostream& operator<<(std::ostream& out, const _Light& light) {
    return out << "* type: " << (light.isSpotLight() ? "Spot (" : "Omni (")
               << (light.isOn() ? "on)" : "off)") << "\n* position: " << light.getPosition()
               << "\n* ambient: " << *light.getAmbient() << "\n* diffuse: " << *light.getDiffuse()
               << "\n* specular: " << *light.getSpecular()
               << "\n* attenuation: " << light.getConstAtt() << " (constant), " << light.getLinAtt()
               << " (linear), " << light.getQuadrAtt() << " (quadratic)";
}
