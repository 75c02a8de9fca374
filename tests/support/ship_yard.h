#pragma once

#include "game/part_store.h"
#include "game/starship.h"
#include "tests/support/masks.h"
#include "tests/support/picture.h"
#include "tests/support/sprites.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window.h"
#include "xml/xml_parser.h"

#include <memory>
#include <string>
#include <vector>

/// Where tests build parts and ships from pieces of a game file. Its catalogue holds a hull with
/// slots for two wings and an engine, a wing with a slot for a weapon, and one of each part that a
/// ship cannot do without, a launcher and its torpedo, all named after their kind. Every model is 2
/// units wide, and no part absorbs any damage. The shield of all ships of a galaxy holds 10 units
/// and does not leak.
class ShipYard {
public:
    ShipYard() {
        sprites::registerExplosions();
        masks::registerShield();
        load("<Hull name='hull' size='7'" + body() + ">" + cockpit() + R"(
    <Slot type='Wing' trans_offset='P(-4|0|0)'/><Slot type='Engine' trans_offset='P(0|0|-4)'/>
    <Slot type='Wing' trans_offset='P(4|1|0)'/></Hull><Wing name='wing')" +
             body() + R"(><Slot type='Weapon' trans_offset='P(0|0|4)'/></Wing>
    <Cannon name='cannon' power='10' efficiency='500' sound='')" +
             body() + R"(/>
    <Engine name='engine' power='1' efficiency='1000' v_max='100' a_max='50' file='')" +
             body() + R"(/>
    <Reactor name='reactor' mass='1' size='1' consumption='10' efficiency='1000' bat_size='1000'/>
    <Tank name='tank' mass='1' size='1' fuel='1000'/><Shield name='Simple Shield' mass='1' size='1'
        power='1' efficiency='1000' strength='20' loss='0'/>
    <Torpedo name='torpedo' mass='1' size='1' power='50' speed='100' range='300' cloak_cat='0'
        lose_dist='0'/>
    <TorpedoLauncher name='launcher' power='40' type='torpedo' maxload='3' range='400' sound='')" +
             body() + "/>");
    }
    ~ShipYard() { PartStore::getInstance()->clear(); }

    /// The element that the text describes, there for as long as the yard.
    XMLElement element(const std::string& xml) {
        const std::string file =
            dir.write("element.xml", "<!DOCTYPE Game><Game>" + xml + "</Game>");
        documents.push_back(std::make_unique<XMLParser>(file));
        return documents.back()->getRootElement().getFirstChild();
    }

    /// Adds parts to the catalogue.
    int load(const std::string& parts) {
        return PartStore::getInstance()->load(element("<PartSection>" + parts + "</PartSection>"));
    }

    /// A ship at the origin that faces along +z, with the given children.
    std::unique_ptr<Starship> ship(const std::string& children = "") {
        return std::make_unique<Starship>(element(shipElement(children)));
    }

    static std::string shipElement(const std::string& children = "") {
        return "<Starship id='3' name='Ship' pos='P(0|0|0)' orientation='V(0|0|1)' up='V(0|1|0)' "
               "hull='hull' engine='engine' reactor='reactor' tank='tank'>" +
               children + "</Starship>";
    }

    /// The event of a key pressed.
    static SDL_Event key(SDLKey pressed) {
        return {.key = {SDL_KEYDOWN, 0, SDL_PRESSED, {0, pressed, KMOD_NONE, 0}}};
    }

    /// A galaxy with a small black sky and the given children.
    std::string galaxyElement(const std::string& children = "") const {
        return "<Galaxy space_bg_size='100' space_bg_texture='" +
               dir.write("sky.ppm", picture::ppm(1, 1, std::string(3, '\0'))) + "'>" + children +
               "</Galaxy>";
    }

    /// The attributes of a part with a body. Its model is a tetrahedron on corners of a cube.
    std::string body() const {
        const std::string model = dir.write("model.ASE", R"(*MATERIAL_COUNT 1
*MATERIAL 0
*GEOMOBJECT
*MESH_VERTEX 0 -1 -1 -1 *MESH_VERTEX 1 1 1 -1 *MESH_VERTEX 2 1 -1 1 *MESH_VERTEX 3 -1 1 1
*MESH_FACE 0: A: 0 B: 1 C: 2 *MESH_FACE 1: A: 0 B: 2 C: 3 *MESH_FACE 2: A: 0 B: 3 C: 1
*MESH_FACE 3: A: 1 B: 3 C: 2
*MATERIAL_REF 0)");
        return " mass='5' resistance='0' explosion_name='starship_explosion' rep3d='" + model + "'";
    }

    /// A cockpit with the given controls and a crosshair of one invisible pixel.
    std::string cockpit(const std::string& controls = "") const {
        return "<Cockpit crosshair_color='C(0|0|0|0)' crosshair_mask='" +
               dir.write("crosshair.bw", masks::full(1, 1)) + "'>" + controls + "</Cockpit>";
    }

private:
    TempDir dir;
    std::vector<std::unique_ptr<XMLParser>> documents;
};
