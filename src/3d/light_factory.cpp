#include "3d/light_factory.h"

#include "3d/omni_light.h"
#include "3d/spot_light.h"
#include "main/exception.h"

#include <algorithm>

namespace {

std::size_t numSlots() {
    GLint slots = 0;
    glGetIntegerv(GL_MAX_LIGHTS, &slots);
    return static_cast<std::size_t>(std::max(slots, 0));
}

}  // namespace

LightFactory::LightFactory() : LightFactory(new ColorRGB(0, 0, 0)) {}

LightFactory::LightFactory(ColorRGB* a) : lights(numSlots()) {
    setGlobalAmbient(a);
}

LightFactory::~LightFactory() {
    lights.clear();
    glDisable(GL_LIGHTING);
}

_Light* LightFactory::getOmniLight(const Point4& pos, ColorRGB* diff, ColorRGB* amb,
                                   ColorRGB* spec) {
    return fillSlot<OmniLight>(diff, amb, spec, pos);
}

_Light* LightFactory::getSpotLight(const Point4& pos, const Vector4& dir, ColorRGB* diff,
                                   ColorRGB* amb, ColorRGB* spec) {
    return fillSlot<SpotLight>(diff, amb, spec, pos, dir);
}

void LightFactory::deleteLight(_Light& l) {
    for (auto& slot : lights)
        if (slot.get() == &l) slot.reset();
}

void LightFactory::setGlobalAmbient(ColorRGB* a) {
    if (!a) throw Exception("LightFactory::setGlobalAmbient: null pointer");
    if (a != ambient.get()) ambient.reset(a);
}

void LightFactory::applyModel() const {
    GLfloat rgba[4];
    ambient->getRGBA(rgba);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, rgba);
    glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, local ? 1 : 0);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, two_side ? 1 : 0);
    glLightModeli(GL_LIGHT_MODEL_COLOR_CONTROL,
                  single_color ? GL_SINGLE_COLOR : GL_SEPARATE_SPECULAR_COLOR);
}

void LightFactory::activateLighting() const {
    if (!isActivated()) glEnable(GL_LIGHTING);
}

void LightFactory::deactivateLighting() const {
    if (isActivated()) glDisable(GL_LIGHTING);
}

bool LightFactory::isActivated() const {
    return glIsEnabled(GL_LIGHTING) == GL_TRUE;
}

std::size_t LightFactory::getNextAvailable() const {
    const auto free = std::find(lights.begin(), lights.end(), nullptr);
    if (free == lights.end())
        throw Exception("LightFactory::getOmniLight: no more lights available");
    return static_cast<std::size_t>(free - lights.begin());
}

template <typename Light, typename... Place>
_Light* LightFactory::fillSlot(ColorRGB* diff, ColorRGB* amb, ColorRGB* spec,
                               const Place&... place) {
    std::unique_ptr<ColorRGB> owned_diff(diff), owned_amb(amb), owned_spec(spec);
    const std::size_t slot = getNextAvailable();
    lights[slot] =
        std::make_unique<Light>(GL_LIGHT0 + static_cast<GLenum>(slot), place...,
                                owned_diff.release(), owned_amb.release(), owned_spec.release());
    return lights[slot].get();
}

std::ostream& operator<<(std::ostream& out, const LightFactory& factory) {
    out << "* ambient: " << *factory.ambient << "\n* local viewer: " << factory.local
        << "\n* two side: " << factory.two_side << "\n* single color: " << factory.single_color
        << "\n* active lights: ";
    for (const auto& light : factory.lights)
        if (light) out << '\n' << *light;
    return out;
}
