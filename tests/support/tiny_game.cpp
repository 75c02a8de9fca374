#include "tests/support/tiny_game.h"

#include "tests/support/picture.h"
#include "tests/support/sprites.h"

#include <array>
#include <sstream>
#include <stdexcept>

namespace {

constexpr const char* game_xml = R"xml(<?xml version='1.0' encoding='UTF-8'?>
<!DOCTYPE Game>
<TarvexGame>
  <Fonts>
    <GlutFont name='helvetica_big' type='B_HELVETICA_18'/>
    <GlutFont name='helvetica_medium' type='B_HELVETICA_12'/>
    <Font3D name='3d_font_01'><Character3D character='A' file='../data/box.ASE'/></Font3D>
  </Fonts>
  <MenuConfig/>
  <LevelSection>
    <Level universe_id='1' start_galaxy='1' user_starship_position='P(0|0|0)'
        user_starship_orientation='V(0|0|1)' user_starship_up='V(0|1|0)'>
      <StoryTeller/>
    </Level>
  </LevelSection>
  <IntroSection/>
  <PartSection>
    <Hull name='hull' mass='1' size='1' rep3d='../data/box.ASE' resistance='50'
        explosion_name='starship_explosion'>
      <Cockpit/>
      <Slot type='Wing' trans_offset='P(-2|0|0)'/>
      <Slot type='Wing' trans_offset='P(2|0|0)'/>
    </Hull>
    <Wing name='wing' mass='1' rep3d='../data/box.ASE' resistance='50'
        explosion_name='starship_explosion'>
      <Slot type='Weapon' trans_offset='P(0|0|2)'/>
      <Slot type='Weapon' trans_offset='P(0|-1|2)'/>
    </Wing>
    <Cannon name='cannon' mass='1' power='10' rep3d='../data/box.ASE' resistance='50'
        explosion_name='starship_explosion' efficiency='500' sound='../data/laser.wav'/>
    <Engine name='engine' mass='1' power='1' rep3d='../data/box.ASE' resistance='50'
        efficiency='1000' v_max='100' a_max='50' file='../data/engine.wav'/>
    <Reactor name='reactor' mass='1' size='1' consumption='10' efficiency='1000' bat_size='1000'/>
    <Tank name='tank' mass='1' size='1' fuel='100000'/>
    <Shield name='Simple Shield' mass='1' size='1' power='10' efficiency='1000' strength='100'
        loss='10'/>
    <Radar name='radar' mass='1' size='1' power='1' range='1000' cloak_cat='1'/>
    <Cloak name='cloak' mass='1' size='1' power='1' cloak_cat='1'/>
    <TorpedoLauncher name='launcher' mass='1' power='10' rep3d='../data/box.ASE' resistance='50'
        explosion_name='starship_explosion' type='torpedo' sound='../data/torpedo.wav' maxload='4'
        range='1000'/>
    <Torpedo name='torpedo' mass='1' size='1' power='100' speed='200' range='1000' cloak_cat='1'
        lose_dist='1000'/>
  </PartSection>
  <WorldSection>
    <Universe id='1'>
      <Galaxy id='1' space_bg_texture='../data/sky.png' space_bg_size='4000'>
        <Planet id='1' name='Rock' rep3d='../data/box.ASE' pos='P(0|0|400)' velocity='0'/>
      </Galaxy>
    </Universe>
  </WorldSection>
  <Starship id='1' name='Player' pos='P(0|0|0)' orientation='V(0|0|1)' up='V(0|1|0)' hull='hull'
      engine='engine' reactor='reactor' tank='tank' radar='radar'>
    <UserControl/>
    <WingConfig type='wing'><CannonConfig type='cannon'/></WingConfig>
    <WingConfig type='wing'>
      <CannonConfig type='cannon'/><TorpedoLauncherConfig type='launcher'/>
    </WingConfig>
  </Starship>
</TarvexGame>
)xml";

}  // namespace

std::string boxModel(float half_size) {
    constexpr std::array<std::array<int, 3>, 12> faces = {{{0, 2, 3},
                                                           {3, 1, 0},
                                                           {4, 5, 7},
                                                           {7, 6, 4},
                                                           {0, 1, 5},
                                                           {5, 4, 0},
                                                           {1, 3, 7},
                                                           {7, 5, 1},
                                                           {3, 2, 6},
                                                           {6, 7, 3},
                                                           {2, 0, 4},
                                                           {4, 6, 2}}};
    std::ostringstream text;
    text << "*3DSMAX_ASCIIEXPORT 200\n*MATERIAL_LIST {\n*MATERIAL_COUNT 1\n*MATERIAL 0 {\n"
            "*MATERIAL_NAME \"plain\"\n*MATERIAL_AMBIENT 0.2 0.2 0.2\n"
            "*MATERIAL_DIFFUSE 0.8 0.4 0.2\n*MATERIAL_SPECULAR 0.5 0.5 0.5\n}\n}\n"
            "*GEOMOBJECT {\n*NODE_NAME \"box\"\n*MESH {\n*MESH_NUMVERTEX 8\n*MESH_NUMFACES 12\n"
            "*MESH_VERTEX_LIST {\n";
    for (int i = 0; i < 8; ++i)
        text << "*MESH_VERTEX " << i << ' ' << (i & 1 ? half_size : -half_size) << ' '
             << (i & 2 ? half_size : -half_size) << ' ' << (i & 4 ? half_size : -half_size) << '\n';
    text << "}\n*MESH_FACE_LIST {\n";
    for (size_t i = 0; i < faces.size(); ++i)
        text << "*MESH_FACE " << i << ": A: " << faces[i][0] << " B: " << faces[i][1]
             << " C: " << faces[i][2] << '\n';
    text << "}\n}\n*MATERIAL_REF 0\n}\n";
    return text.str();
}

TinyGame::TinyGame() : xml(game_xml) {
    write("data/game.xml", xml);
    write("data/box.ASE", boxModel());
    write("data/sky.png", picture::ppm(1, 1, "\x05\x05\x0a"));
    sprites::writeExplosions(*this);
    write("build/.keep", "");
}

TinyGame& TinyGame::replace(const std::string& piece, const std::string& by) {
    const size_t at = xml.find(piece);
    if (at == std::string::npos || xml.find(piece, at + 1) != std::string::npos)
        throw std::logic_error("not exactly once in the game file: " + piece);
    xml.replace(at, piece.size(), by);
    return write("data/game.xml", xml);
}

TinyGame& TinyGame::rename(const std::string& element, const std::string& name) {
    if (xml.find("</" + element + ">") != std::string::npos)
        replace("</" + element + ">", "</" + name + ">");
    for (const char end : {'>', '/', ' '})
        if (xml.find("<" + element + end) != std::string::npos)
            return replace("<" + element + end, "<" + name + end);
    throw std::logic_error("no such element: " + element);
}

TinyGame& TinyGame::write(const std::string& name, const std::string& content) {
    dir.write(name, content);
    return *this;
}
