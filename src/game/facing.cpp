#include "game/facing.h"

#include "main/exception.h"
#include "xml/xml_element.h"

facing_t readFacing(const XMLElement& node, const std::string& orientation, const std::string& up) {
    facing_t facing = {node.getAttributeAsDirection(orientation), node.getAttributeAsDirection(up)};
    if (facing.orientation * facing.up == 0) return facing;

    Vector4 side = facing.orientation ^ facing.up;
    if (side.getLength() == 0)
        throw Exception(node.getName() + ": attribute " + up + ": " + node.getAttribute(up) +
                        " lies along the orientation");
    facing.up = side.normalize() ^ facing.orientation;
    return facing;
}
