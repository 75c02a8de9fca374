// Takes the pictures of the contact sheet with the game's own renderer: every kind of ship from six
// sides, every planet, the letters, both explosions, every sky all round, and what each level shows
// first. Writes one TGA file for each into a folder; art/contact_sheet calls it and lays them out.
//     cd build && xvfb-run ./bench/tarvex_sheet FOLDER

#include "3d/color_rgb.h"
#include "3d/font_factory.h"
#include "3d/gfx_factory.h"
#include "3d/opengl.h"
#include "3d/space_bg.h"
#include "game/camera_management.h"
#include "game/galaxy.h"
#include "game/game_camera_interface.h"
#include "game/part_store.h"
#include "game/planet.h"
#include "game/simple_game_camera.h"
#include "game/starship.h"
#include "main/exception.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"
#include "xml/xml_parser.h"

#include <SDL.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int width = 800;
constexpr int height = 600;
constexpr float lamp_distance = 400;  // from the galaxy's lamp to what is shown
constexpr float fill = 1.6F;          // distance of the camera in radii of what is shown
constexpr float planet_fill = 2.1F;
constexpr int explosion_frames = 101;
constexpr int explosion_views = 12;

struct Shown : Galaxy {
    using Galaxy::Galaxy, Galaxy::show;
};

std::vector<XMLElement> childrenOf(const XMLElement& parent) {
    std::vector<XMLElement> children;
    for (XMLElement child = parent.getFirstChild(); !child.isNull(); child = child.getNext())
        children.push_back(child);
    return children;
}

XMLElement findChild(const XMLElement& parent, const std::string& name) {
    for (const XMLElement& child : childrenOf(parent))
        if (child.getName() == name) return child;
    throw Exception("no " + name + " in " + parent.getName());
}

/// A name that is fit for a file.
std::string fileName(std::string text) {
    for (char& c : text) c = c == ' ' ? '_' : static_cast<char>(std::tolower(c));
    return text;
}

class Sheet {
public:
    Sheet(std::filesystem::path folder, const XMLElement& game) : folder(folder), game(game) {
        std::filesystem::create_directories(folder);
        for (const XMLElement& universe : childrenOf(findChild(game, "WorldSection")))
            for (const XMLElement& galaxy : childrenOf(universe))
                for (const XMLElement& object : childrenOf(galaxy)) sort(object);
        ships.try_emplace(findChild(game, "Starship").getAttribute("hull"),
                          findChild(game, "Starship"));
    }

    void takeShips() const;
    void takePlanets() const;
    void takeLetters() const;
    void takeExplosions() const;
    void takeSkies() const;
    void takeLevels() const;

private:
    void sort(const XMLElement& object) {
        if (object.getName() == "Planet") planets.try_emplace(object.getAttribute("rep3d"), object);
        if (object.getName() != "Starship") return;
        const auto [kind, added] = ships.try_emplace(object.getAttribute("hull"), object);
        if (childrenOf(object).size() > childrenOf(kind->second).size()) kind->second = object;
    }
    /// One frame of what `draw` draws, seen from the origin, kept under a name.
    void take(const std::string& name, const Vector4& toward, const Vector4& up,
              const std::function<void()>& draw) const;
    void takeObject(const std::string& name, _GameObject& object, float distance) const;
    void keep(const std::string& name) const {
        OpenGLContext::getInstance()
            ->captureScreen(0, 0, width, height)
            .writeTGA(folder / (name + ".tga"));
    }

    std::filesystem::path folder;
    XMLElement game;
    std::map<std::string, XMLElement> ships;    // the most complete of each kind, by its hull
    std::map<std::string, XMLElement> planets;  // one of each kind, by its model
};

void Sheet::take(const std::string& name, const Vector4& toward, const Vector4& up,
                 const std::function<void()>& draw) const {
    SimpleGameCamera camera(Point4(), up, Point4(toward.x, toward.y, toward.z, 1));
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->setCurrentCamera(&camera);
    gl->startFrame(true);
    draw();
    keep(name);
    gl->endFrame();
}

/// The camera stands between the lamp and the object, which fills the picture.
void Sheet::takeObject(const std::string& name, _GameObject& object, float distance) const {
    object.update(0);  // moves its bounds along
    const Point4 place = object.getBoundingObject().getCenter();
    SimpleGameCamera camera(Point4(place.x, place.y, place.z - distance, 1), Vector4(0, 1, 0, 1),
                            place);
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->setCurrentCamera(&camera);
    gl->startFrame(true);
    object.draw(gl->getDrawMode());
    keep(name);
    gl->endFrame();
}

void Sheet::takeShips() const {
    struct Side {
        const char* name;
        Vector4 nose, top;  // towards the camera is -z, its right -x
    };
    const Side sides[] = {
        {"quarter", Vector4(0.75F, -0.32F, -0.6F, 1), Vector4(0.25F, 0.95F, -0.2F, 1)},
        {"front", Vector4(0, 0, -1, 1), Vector4(0, 1, 0, 1)},
        {"side", Vector4(1, 0, 0, 1), Vector4(0, 1, 0, 1)},
        {"back", Vector4(0, 0, 1, 1), Vector4(0, 1, 0, 1)},
        {"top", Vector4(1, 0, 0, 1), Vector4(0, 0, -1, 1)},
        {"below", Vector4(1, 0, 0, 1), Vector4(0, 0, 1, 1)},
    };
    glClearColor(0.16F, 0.18F, 0.22F, 0);
    for (const auto& [hull, node] : ships) {
        Starship ship(node);
        ship.setPosition(Point4(0, -lamp_distance / 4, lamp_distance, 1));
        for (const Side& side : sides) {
            ship.setOrientation(side.nose);
            ship.setUp(side.top);
            takeObject("ship_" + fileName(hull) + "_" + side.name, ship, ship.getSize() * fill);
        }
    }
    glClearColor(0, 0, 0, 0);
}

void Sheet::takePlanets() const {
    for (const auto& [model, node] : planets) {
        Planet planet(node);
        const float size = planet.getSize();
        planet.setPosition(Point4(-size, -size, lamp_distance + size * 3, 1));
        for (const char* side : {"a", "b"}) {
            takeObject("planet_" + fileName(planet.getName()) + "_" + side, planet,
                       size * planet_fill);
            planet.setOrientation(Vector4(0.87F, 0, -0.5F, 1));
        }
        planet.setUp(Vector4(0, 0.3F, -1, 1));
        planet.setOrientation(Vector4(0, 1, 0.3F, 1));
        takeObject("planet_" + fileName(planet.getName()) + "_pole", planet, size * planet_fill);
    }
}

void Sheet::takeLetters() const {
    const std::string lines[] = {"ABCDEFGHIJKLM", "NOPQRSTUVWXYZ", "abcdefghijklm", "nopqrstuvwxyz",
                                 "0123456789"};
    constexpr float distance = 6;
    constexpr float line_height = 1.1F;
    const Point4 middle(-1.44F, -2.42F, 0, 1);  // letters stand off their origins
    SimpleGameCamera camera(Point4(middle.x, middle.y, distance, 1), Vector4(0, 1, 0, 1), middle);
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->setCurrentCamera(&camera);
    gl->startFrame(true);
    const _Font* font = FontFactory::getInstance()->getFont("3d_font_01");
    float y = 2 * line_height;
    for (const std::string& line : lines) {
        float length = 0;
        for (const char c : line) length += 2 * font->getCharWidth(c);
        font->write(-length / 2, y, 0, line, nullptr, gl->getDrawMode());
        y -= line_height;
    }
    keep("letters");
    gl->endFrame();
}

void Sheet::takeExplosions() const {
    for (const char* name : {"starship_explosion", "torpedo_explosion"}) {
        AnimatedSprite sprite = GFX_Factory::getInstance()->getAnimatedSprite(name);
        for (int n = 0; n < explosion_views; ++n) {
            take(std::string("blast_") + name + "_" + static_cast<char>('a' + n),
                 Vector4(0, 0, -1, 1), Vector4(0, 1, 0, 1), [&] {
                     glTranslatef(0, 0, -1);
                     sprite.drawCurrentFrame();
                 });
            sprite.updateAnimation(sprite.getDuration() / (explosion_views + 1));
        }
    }
}

void Sheet::takeSkies() const {
    const std::map<std::string, Vector4> directions{
        {"a_ahead", Vector4(0, 0, 1, 1)},   {"b_left", Vector4(1, 0, 0.01F, 1)},
        {"c_back", Vector4(0, 0, -1, 1)},   {"d_right", Vector4(-1, 0, 0.01F, 1)},
        {"e_up", Vector4(0, 1, 0.01F, 1)},  {"f_below", Vector4(0, -1, 0.01F, 1)},
        {"g_edge", Vector4(1, 0.1F, 1, 1)}, {"h_corner", Vector4(-1, -1, 1, 1)},
    };
    std::map<std::string, float> skies;
    for (const XMLElement& universe : childrenOf(findChild(game, "WorldSection")))
        for (const XMLElement& galaxy : childrenOf(universe))
            skies[galaxy.getAttribute("space_bg_texture")] =
                galaxy.getAttributeAsFloat("space_bg_size");
    for (const auto& [texture, size] : skies) {
        const SpaceBG sky(size, texture);
        for (const auto& [side, direction] : directions)
            take("sky_" + std::filesystem::path(texture).stem().string() + "_" + side, direction,
                 Vector4(0, 1, 0, 1),
                 [&] { sky.draw(OpenGLContext::getInstance()->getDrawMode()); });
    }
}

void Sheet::takeLevels() const {
    Starship player(findChild(game, "Starship"));
    int number = 0;
    for (const XMLElement& level : childrenOf(findChild(game, "LevelSection"))) {
        std::map<int, XMLElement> galaxies;
        for (const XMLElement& universe : childrenOf(findChild(game, "WorldSection")))
            if (universe.getAttributeAsInt("id", 10) == level.getAttributeAsInt("universe_id", 10))
                for (const XMLElement& galaxy : childrenOf(universe))
                    galaxies.insert_or_assign(galaxy.getAttributeAsInt("id", 10), galaxy);
        Shown galaxy(galaxies.at(level.getAttributeAsInt("start_galaxy", 10)), nullptr);
        player.setPosition(level.getAttributeAsPoint("user_starship_position"));
        player.setOrientation(level.getAttributeAsVector("user_starship_orientation"));
        player.setHeading(level.getAttributeAsVector("user_starship_orientation"));
        player.setUp(level.getAttributeAsVector("user_starship_up"));
        CameraManagement::getInstance()->setPlayerObject(&player);
        CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);
        const std::string name = "level_" + std::to_string(++number);
        galaxy.show();
        galaxy.show();  // the picture just shown is in the other buffer
        keep(name);
    }
}

}  // namespace

int main(int count, char* arguments[]) try {
    if (count != 2) throw Exception("usage: tarvex_sheet FOLDER");
    SDLContext::init(SDL_INIT_VIDEO, width, height);
    OpenGLContext::getInstance()->setShowFPS(false);
    std::cout.setstate(std::ios::failbit);
    const XMLParser parser("../data/game.xml");
    const XMLElement game = parser.getRootElement();
    FontFactory::getInstance()->load(findChild(game, "Fonts"));
    PartStore::getInstance()->load(findChild(game, "PartSection"));
    GFX_Factory* effects = GFX_Factory::getInstance();
    effects->addAnimatedSprite("starship_explosion", "../data/tarvex_explosion/explosion*.png",
                               explosion_frames);
    effects->addAnimatedSprite("torpedo_explosion",
                               "../data/tarvex_explosion/torpedo_explosion_blue*.png",
                               explosion_frames);

    const Sheet sheet(arguments[1], game);
    sheet.takeShips();
    sheet.takePlanets();
    sheet.takeLetters();
    sheet.takeExplosions();
    sheet.takeSkies();
    sheet.takeLevels();
    return 0;
} catch (const Exception& failure) {
    std::cerr << "tarvex_sheet: " << failure.getMessage() << '\n';
    return 1;
}
