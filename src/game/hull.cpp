#include "game/hull.h"

#include "game/cockpit.h"
#include "game/control.h"
#include "game/starship.h"
#include "xml/xml_element.h"

Hull::Hull(const XMLElement& node) : _StarshipPart(PRT_HULL), _3D_Rep(SLOT_NONE) {
    checkElement(node, "Hull");
    readNameAndMass(node);
    setSize(readNumber(node, "size"));
    readBody(node);
    for (XMLElement child = node.getFirstChild(); !child.isNull(); child = child.getNext()) {
        const std::string element = child.getName();
        if (element == "Cockpit") {
            readCockpit(child);
        } else if (element == "Slot") {
            readSlot(child, "Hull");
        } else {
            throw Exception("Hull::Hull: Wrong subelement in Hull (" + element + ")");
        }
    }
    if (!cockpit) throw Exception("Hull::Hull: cockpit must be specified!");
}

Hull::Hull(const Hull& other)
    : _StarshipPart(other), _3D_Rep(other), cockpit(new Cockpit(*other.cockpit)) {}

Hull::~Hull() = default;

void Hull::readCockpit(const XMLElement& node) {
    if (cockpit) throw Exception("Hull::Hull: only one cockpit allowed");
    cockpit.reset(new Cockpit(node));
}

void Hull::setParentShip(Starship* ship) {
    _StarshipPart::setParentShip(ship);
    cockpit->setParentShip(ship);
}

Point4 Hull::getPosition() const {
    return parent_ship ? parent_ship->getPosition() : _3D_Rep::getPosition();
}

Vector4 Hull::getOrientation() const {
    return parent_ship ? parent_ship->getOrientation() : _3D_Rep::getOrientation();
}

Vector4 Hull::getUp() const {
    return parent_ship ? parent_ship->getUp() : _3D_Rep::getUp();
}

Matrix4 Hull::getParentShipMatrix() const {
    return {getPosition(), getOrientation(), getUp()};
}

void Hull::resetStarshipControl() {
    if (!parent_ship) return;
    parent_ship->getControl()->reset();
    parent_ship->getControl()->lock();
    parent_ship->destroyed = true;
    parent_ship->showEnd();
}

void Hull::update(unsigned int timediff) {
    if (updateTree(timediff) && parent_ship) parent_ship->explode(false);
}

bool Hull::isPerhapsHit(const _BoundingObject& object, float& damage) {
    return isHitAt(getPosition(), getOrientation(), getUp(), object, damage);
}
