#include "tests/support/tiny_game.h"

#include "tests/support/files.h"
#include "tests/support/masks.h"
#include "tests/support/picture.h"
#include "tests/support/sounds.h"
#include "tests/support/sprites.h"

#include <sstream>
#include <stdexcept>

std::string boxModel(float half_size) {
    // Three corners a face. The bits of a corner's number tell on which side it is.
    const std::string faces = "023310457764015540137751326673204462";
    std::ostringstream text;
    text << "*MATERIAL_COUNT 1\n*MATERIAL 0 {\n*MATERIAL_DIFFUSE 0.8 0.4 0.2\n}\n*GEOMOBJECT {\n";
    for (int i = 0; i < 8; ++i)
        text << "*MESH_VERTEX " << i << ' ' << (i & 1 ? half_size : -half_size) << ' '
             << (i & 2 ? half_size : -half_size) << ' ' << (i & 4 ? half_size : -half_size) << '\n';
    for (size_t i = 0; i < faces.size(); i += 3)
        text << "*MESH_FACE " << i / 3 << ": A: " << faces[i] << " B: " << faces[i + 1]
             << " C: " << faces[i + 2] << '\n';
    text << "}\n*MATERIAL_REF 0\n}\n";
    return text.str();
}

TinyGame::TinyGame() : xml(readFile(TARVEX_SOURCE_DIR "/tests/support/tiny_game.xml")) {
    write("data/game.xml", xml);
    write("data/box.ASE", boxModel());
    write("data/sky.png", picture::ppm(1, 1, "\x05\x05\x0a"));
    write("data/balticgreen.jpg", picture::ppm(1, 1, "\x40\x80\x40"));
    write("data/menu/deactivated.png", picture::ppm(1, 1, "\x60\x60\x60"));
    write("data/menu/idle.png", picture::ppm(1, 1, "\x01\x01\xa0"));
    write("data/menu/highlighted.png", picture::ppm(1, 1, "\x01\xa0\x01"));
    write("data/menu/pressed.png", picture::ppm(1, 1, "\xa0\x01\x01"));
    write("data/masks/crosshair.bw", masks::full(1, 1));
    write(masks::shield_file, masks::shield);
    sprites::writeExplosions(*this);
    for (const char* name : {"laser", "engine", "torpedo", "explosion", "torpedo_explode", "click"})
        write(std::string("data/") + name + ".wav", sounds::wave(0));
    write("build/.keep", "");
}

TinyGame& TinyGame::replace(const std::string& piece, const std::string& by) {
    const size_t at = xml.find(piece);
    if (at == std::string::npos || xml.find(piece, at + 1) != std::string::npos)
        throw std::logic_error("not exactly once in the game file: " + piece);
    xml.replace(at, piece.size(), by);
    return write("data/game.xml", xml);
}

TinyGame& TinyGame::write(const std::string& name, const std::string& content) {
    dir.write(name, content);
    return *this;
}
