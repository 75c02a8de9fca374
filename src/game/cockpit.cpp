#include "game/cockpit.h"

#include "3d/bitmap_factory.h"
#include "3d/opengl.h"
#include "game/battery_interface.h"
#include "game/camera_management.h"
#include "game/game_camera_interface.h"
#include "game/mfd.h"
#include "game/radar_interface.h"
#include "game/speedometer.h"
#include "game/starship.h"
#include "game/tank_interface.h"
#include "main/exception.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"

#include <map>
#include <string>
#include <utility>

namespace {

template <class Control>
std::unique_ptr<_CockpitControl> build(const XMLElement& node, Cockpit* owner) {
    return std::make_unique<Control>(node, owner);
}

std::unique_ptr<_CockpitControl> readControl(const XMLElement& node, Cockpit* owner) {
    using Builder = std::unique_ptr<_CockpitControl> (*)(const XMLElement&, Cockpit*);
    static const std::map<std::string, Builder> builders = {
        {"BatteryInterface", build<BatteryInterface>},
        {"Speedometer", build<Speedometer>},
        {"RadarInterfaceFront", build<RadarInterface>},
        {"RadarInterfaceBack", build<RadarInterface>},
        {"TankInterface", build<TankInterface>},
        {"MFD", build<Mfd>},
    };
    const auto builder = builders.find(node.getName());
    if (builder == builders.end())
        throw Exception("Cockpit::Cockpit: invalid cockpit control type: " + node.getName());
    return builder->second(node, owner);
}

}  // namespace

Cockpit::Cockpit(const XMLElement& node)
    : crosshair(
          *BitmapFactory::getInstance()->getBitmap(node.getAttributeAsString("crosshair_mask"))) {
    crosshair.setColor(node.getAttributeAsColor("crosshair_color"));
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext())
        take(readControl(child, this));
}

Cockpit::Cockpit(const Cockpit& other)
    : crosshair(other.crosshair),
      target_viewer(other.target_viewer),
      shield_viewer(other.shield_viewer) {
    target_viewer.setCockpit(this);
    shield_viewer.setCockpit(this);
    for (const auto& control : other.controls) {
        take(control->clone());
        controls.back()->setCockpit(this);
    }
    addClient(&target_viewer);
    addClient(&shield_viewer);
}

Cockpit::~Cockpit() = default;

void Cockpit::take(std::unique_ptr<_CockpitControl> control) {
    if (control->getType() == CPCTRL_MFD) displays.push_back(static_cast<Mfd*>(control.get()));
    controls.push_back(std::move(control));
}

void Cockpit::draw(DRWenum) const {
    glDisable(GL_LIGHTING);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_2D);
    if (mode == CP_FULLSCREEN) drawOverlay();
    glEnable(GL_DEPTH_TEST);
}

void Cockpit::drawOverlay() const {
    const OpenGLContext* gl = OpenGLContext::getInstance();
    const int width = SDLContext::getInstance()->getWidth();
    const int height = SDLContext::getInstance()->getHeight();
    gl->switchTo2D(0, width, 0, height);
    gl->activateBlending();
    crosshair.draw((width - crosshair.getWidth()) / 2, (height - crosshair.getHeight()) / 2, -1,
                   true);
    prepareMask();
    for (const auto& control : controls) control->draw();
    gl->deactivateBlending();
    gl->switchTo3D();
}

void Cockpit::prepareMask() const {
    glClear(GL_STENCIL_BUFFER_BIT);
    for (const auto& control : controls) control->drawStencil();
}

void Cockpit::setMode(COCKPITenum m) {
    mode = m == CP_SWITCH ? static_cast<COCKPITenum>(-mode) : m;
}

void Cockpit::update() {
    if (displays.empty()) return;
    const _GameCameraInterface* camera = CameraManagement::getInstance()->getCurrentCamera();
    if (!camera || !ship || camera->getGameObject() != ship) return;

    const _2D_Rep* page = displays.back()->getCurrent();
    if (page == &target_viewer) target_viewer.update();
    if (page == &shield_viewer) shield_viewer.update();
}

void Cockpit::addClient(_2D_Rep* client) {
    for (Mfd* display : displays) display->addClient(client);
}

void Cockpit::removeClient(_2D_Rep* client) {
    for (Mfd* display : displays) display->removeClient(client);
}

Mfd* Cockpit::getMFD(int which) const {
    const auto number = static_cast<std::size_t>(which);
    return which >= 0 && number < displays.size() ? displays[number] : nullptr;
}

void Cockpit::switchDisplay(unsigned int, bool) {}

void Cockpit::addMiniClient(_2D_Rep*) {}

void Cockpit::removeMiniClient(_2D_Rep*) {}
