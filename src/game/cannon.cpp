#include "game/cannon.h"

#include "game/game_sound.h"
#include "game/laser.h"
#include "game/reactor.h"
#include "game/starship.h"
#include "xml/xml_element.h"

namespace {

constexpr float muzzle_distance = 25;  // a shot starts clear of the cannon's own ship
constexpr float laser_speed = 350;     // world units per second
constexpr short shot_loudness = 100;

}  // namespace

Cannon::Cannon(const XMLElement& node) : _StarshipPart(PRT_CANNON), _3D_Rep(SLOT_WEAPON) {
    checkElement(node, "Cannon");
    readNameAndMass(node);
    setPower(readNumber(node, "power"));
    setSize(0);
    readBody(node);
    setEfficiency(readNumber(node, "efficiency"));
    sound_file = node.getAttributeAsString("sound");
}

Laser* Cannon::fire() {
    const Matrix4 placement = getMatrix() * getParentShipMatrix();
    const Vector4 direction = placement.getZ();
    const Point4 pos =
        placement.getTranslation() + Vector4(direction).normalize() * muzzle_distance;

    const auto shot_power = static_cast<float>(getPower());
    const float laser_power = parent_ship->getReactor()->drawPower(shot_power, shot_power);
    if (laser_power > 0) {
        GameSound::getInstance()->playSound(SND_WEAPONFIRE, sound_file, pos, shot_loudness, 0);
    }
    const float energy = static_cast<float>(efficiency) * laser_power / 1000;
    return new Laser(nullptr, energy, pos, direction, placement.getY(), laser_speed);
}
