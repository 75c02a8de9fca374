#include "game/radar.h"

#include "3d/matrix.h"
#include "game/cloak.h"
#include "game/galaxy.h"
#include "game/starship.h"
#include "xml/xml_element.h"

#include <algorithm>

Radar::Radar(const XMLElement& node) : _StarshipPart(PRT_RADAR) {
    checkElement(node, "Radar");
    readNameAndMass(node);
    setPower(readNumber(node, "power"));
    setSize(readNumber(node, "size"));
    range = readNumber(node, "range", 1);
    cloak_cat = static_cast<unsigned int>(readInt(node, "cloak_cat"));
}

std::list<radar_obj_t> Radar::detectObjects(RADARenum mode) const {
    std::list<radar_obj_t> detected;
    const Galaxy* galaxy = parent_ship->getGalaxy();
    if (!galaxy) return detected;

    const Point4 position = parent_ship->getPosition();
    const Vector4 ahead = parent_ship->getOrientation().normalize();
    const Matrix4 to_ship = Matrix4(Point4(), ahead, parent_ship->getUp().normalize()).invert();
    const auto reach = static_cast<float>(range);

    for (const auto& [id, slot] : galaxy->getObjects()) {
        const _GameObject* object = *slot;
        if (!object || object == parent_ship) continue;

        Vector4 to_object(position, object->getPosition());
        const float distance = to_object.getLength();
        if (distance > reach || isHidden(*object)) continue;

        const float forward = ahead * to_object;
        if (mode == RADAR_FRONT ? forward < 0 : forward > 0) continue;

        // What is at the ship's own place has no direction: it shows in the middle.
        Point4 p;
        if (distance > 0) p = to_ship ^ Point4(to_object.normalize());
        p.x *= -1;
        p.z = std::max(1 - distance / reach, 0.0f);
        detected.push_back({p, static_cast<unsigned int>(id)});
    }
    return detected;
}

bool Radar::isHidden(const _GameObject& object) const {
    if (object.getType() != GO_STARSHIP) return false;
    const auto* ship = dynamic_cast<const Starship*>(&object);
    return ship && ship->getCloak() && ship->getCloak()->getCloakCat() > cloak_cat;
}
