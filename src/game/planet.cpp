#include "game/planet.h"

#include "3d/ase_object.h"
#include "3d/bounding_sphere.h"
#include "3d/color_rgb.h"
#include "3d/font_factory.h"
#include "3d/mt_ase_object.h"
#include "3d/opengl.h"
#include "main/exception.h"
#include "main/sdl_context.h"
#include "xml/xml_element.h"

#include <GL/gl.h>
#include <SDL.h>

namespace {

constexpr float camera_height = 10;       // above the surface
constexpr float collision_height = 20;    // of the sphere that ships and shots collide with
constexpr float cloud_round_time = 5000;  // milliseconds at a drift of 1
constexpr float cloud_offset_limit = 1000;

std::unique_ptr<_3DObject> loadWithClouds(const std::string& ground, const std::string& clouds) {
    return std::make_unique<MT_AseObject>(ground, MTL_TEX_ONLY, clouds, MTL_TEX_DECAL,
                                          BOUNDING_SPHERE, false);
}

/// Font, text and place of one line on the landing screen, which is 400 units wide and 300 high.
void writeLine(const char* font, float x, float y, const std::string& text) {
    FontFactory::getInstance()->getFont(font)->write(x, y, text, new ColorRGB(1, 1, 1), DRAW_FLAT);
}

}  // namespace

Planet::Planet(const XMLElement& node)
    : _RotatingGameObject(node.getAttributeAsInt("id", 10) | GO_PLANET, GO_PLANET) {
    if (node.getName() != "Planet")
        throw Exception("Planet::Planet: invalid game file (wrong node type)");

    setName(node.getAttributeAsString("name"));
    readModel(node);
    setPosition(node.getAttributeAsPoint("pos"));
    setVelocity(node.getAttributeAsFloat("velocity"));
    addCamera(CAM_PLANET, CPOS_FRONT,
              Vector4(planet->getBoundingObject()->getRadius() + camera_height, 0, 0, 1));
    getBoundingObject();  // its size can be asked for from now on
}

Planet::Planet()
    : _RotatingGameObject(0, GO_PLANET),
      planet(loadWithClouds("../data/earth_main.ASE", "../data/earth_clouds.ASE")) {}

Planet::~Planet() = default;

void Planet::readModel(const XMLElement& node) {
    const auto clouds = ifPresent([&] { return node.getAttributeAsString("rep3d_mt"); });
    const std::string ground = node.getAttributeAsString("rep3d");
    multitex = clouds && !clouds->empty();
    if (!multitex) {
        planet = std::make_unique<AseObject>(ground, MTL_TEX_COMBINED, BOUNDING_SPHERE, false);
        return;
    }
    planet = loadWithClouds(ground, *clouds);
    cloud_x_offset = node.getAttributeAsFloat("cloud_x_offset");
    cloud_velocity = node.getAttributeAsFloat("cloud_velocity");
}

_BoundingObject* Planet::computeBoundingObject() const {
    const _BoundingObject& surface = *planet->getBoundingObject();
    return new BoundingSphere(surface.getCenter(), surface.getRadius() + collision_height);
}

void Planet::update(int time_diff) {
    update_b_obj = true;
    if (multitex) moveTexture(time_diff);
    rotate(time_diff);
}

// The texture repeats, so that nobody sees the step back.
void Planet::moveTexture(int time_diff) {
    cloud_x_offset += static_cast<float>(time_diff) * cloud_velocity / cloud_round_time;
    if (cloud_x_offset > cloud_offset_limit) cloud_x_offset -= cloud_offset_limit;
}

void Planet::drawModel(DRWenum draw_mode) const {
    if (multitex && draw_mode == DRAW_MULTITEX) {
        glActiveTextureARB(GL_TEXTURE1_ARB);
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glTranslatef(cloud_x_offset, cloud_x_offset, 0);
        glMatrixMode(GL_MODELVIEW);
        glActiveTextureARB(GL_TEXTURE0_ARB);
    }
    planet->draw(draw_mode);
}

void Planet::run() const {
    const OpenGLContext* gl = OpenGLContext::getInstance();
    SDL_Event event;
    do {
        gl->startFrame(true);
        drawLandingText();
        gl->endFrame();
    } while (!SDLContext::getInstance()->pollEvent(event) || event.type != SDL_KEYDOWN);
}

void Planet::drawLandingText() const {
    OpenGLContext* gl = OpenGLContext::getInstance();
    gl->switchTo2D(0, 400, 0, 300);
    gl->activateBlending();
    glDisable(GL_DEPTH_TEST);
    gl->getLightFactory()->deactivateLighting();

    writeLine("helvetica_big", 150, 150, "You landed on: " + getName());
    writeLine("helvetica_medium", 150, 130, "hit any key to takeoff");

    glEnable(GL_DEPTH_TEST);
    gl->deactivateBlending();
    gl->switchTo3D();
}
