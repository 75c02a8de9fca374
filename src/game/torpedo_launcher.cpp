#include "game/torpedo_launcher.h"

#include "game/camera_management.h"
#include "game/game_sound.h"
#include "game/part_store.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "game/torpedo.h"
#include "xml/xml_element.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr float tube_distance = 40;  // a torpedo starts clear of the launcher's own ship

void playAt(const Point4& pos, const std::string& sound) {
    constexpr short loudness = 120;
    GameSound::getInstance()->playSound(SND_WEAPONFIRE, sound, pos, loudness, 0);
}

}  // namespace

TorpedoLauncher::TorpedoLauncher(const XMLElement& node)
    : _StarshipPart(PRT_TORPEDO_LAUNCHER), _3D_Rep(SLOT_WEAPON) {
    checkElement(node, "TorpedoLauncher");
    readNameAndMass(node);
    setPower(readNumber(node, "power"));
    setSize(0);
    readBody(node);
    setTorpedoType(node.getAttributeAsString("type"));
    sound_file = node.getAttributeAsString("sound");
    max_load = load = readInt(node, "maxload");
    range = static_cast<unsigned int>(readInt(node, "range"));
}

Torpedo* TorpedoLauncher::fire() {
    const Matrix4 placement = getMatrix() * getParentShipMatrix();
    const Vector4 direction = placement.getZ();
    const Point4 pos = placement.getTranslation() + Vector4(direction).normalize() * tube_distance;
    if (load <= 0) {
        playAt(pos, "../data/click.wav");
        return nullptr;
    }
    --load;
    if (!drawLaunchPower()) return nullptr;

    std::unique_ptr<Torpedo> torpedo(PartStore::getInstance()->getTorpedo(t_type));
    torpedo->setPosition(pos);
    torpedo->setOrientation(direction);
    torpedo->setUp(placement.getY());
    torpedo->setHeading(direction);
    torpedo->setTarget(parent_ship->getSelectedObject());
    torpedo->activateCamera();
    playAt(pos, sound_file);

    CameraManagement* cameras = CameraManagement::getInstance();
    if (cameras->isAutoWeapon())
        cameras->changeCamera(CAM_TORPEDO, torpedo->getCameras(), CPOS_FRONT);
    return torpedo.release();
}

bool TorpedoLauncher::drawLaunchPower() {
    const auto launch_power = static_cast<float>(getPower());
    return parent_ship->getReactor()->drawPower(launch_power, launch_power) == launch_power;
}

void TorpedoLauncher::addTorpedo(unsigned int n) {
    constexpr long long most = std::numeric_limits<int>::max();
    load = static_cast<int>(std::min(static_cast<long long>(load) + n, most));
}
