#include "3d/animated_sprite.h"
#include "3d/font_factory.h"
#include "3d/material.h"
#include "3d/opengl.h"
#include "3d/space_bg.h"
#include "bench/fighters.h"
#include "game/camera_management.h"
#include "game/explosion.h"
#include "game/starship.h"
#include "tests/support/silence.h"
#include "tests/support/sprites.h"
#include "tests/support/window.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

// What the explosions of a fight add to a frame, over the shipped sky. The measure is as many
// squares of the same size with the same picture, drawn with all that they have in common set once:
// nobody fills these pixels for less.

namespace {

constexpr int num_frames = 60, shown_frame = 50;
constexpr int first_frame_time = 40;  // milliseconds
constexpr float near = 400, far = 4000;
constexpr float size = 200;  // edge of the explosion of a fighter
constexpr float shift = 3;   // from one explosion to the next

/// The view from a ship at the origin along +z.
class View {
public:
    View() {
        const Silence silence;
        sprites::registerExplosions();
        fighters::loadParts();
        const XMLParser parser(fighters::game_file);
        FontFactory::getInstance()->load(fighters::findChild(parser.getRootElement(), "Fonts"));
        ship = std::make_unique<Starship>(fighters::findChild(parser.getRootElement(), "Starship"));
        ship->setPosition(Point4());
        ship->setOrientation(Vector4(0, 0, 1, 1));
        ship->update(0);
        CameraManagement::getInstance()->setPlayerObject(ship.get());
        CameraManagement::getInstance()->changeCamera(CHG_PLAYER_STARSHIP);
        fire.updateAnimation(shown_frame * first_frame_time);
    }
    ~View() {
        const Silence silence;
        ship.reset();
    }
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// One frame of the flight, in which `draw` draws what explodes.
    template <class Draw>
    void show(Draw draw) const {
        const OpenGLContext* gl = OpenGLContext::getInstance();
        gl->startFrame(true);
        sky.draw(DRAW_TEXTURE);
        draw();
        glFinish();
        gl->endFrame();
    }
    void drawExplosion(const Point4& place) const {
        glPushMatrix();
        drawObjectExplosion(fire, place, size);
        glPopMatrix();
    }

private:
    const SDLContext& context = window();
    std::unique_ptr<Starship> ship;
    const SpaceBG sky{4000, "../data/sky/rose_band.jpg"};
    AnimatedSprite fire{"../data/tarvex_explosion/explosion*.png", num_frames, 0};
};

/// Places side by side at that distance.
Point4 placeOf(int number, int all, float distance) {
    return {(static_cast<float>(number) - static_cast<float>(all - 1) / 2) * shift, 0, distance, 1};
}

void explosions(benchmark::State& state) {
    const View view;
    const auto number = static_cast<int>(state.range(0));
    const auto distance = static_cast<float>(state.range(1));
    for (auto _ : state)
        view.show([&] {
            for (int i = 0; i < number; ++i) view.drawExplosion(placeOf(i, number, distance));
        });
}

void squares(benchmark::State& state) {
    const View view;
    const auto number = static_cast<int>(state.range(0));
    const auto distance = static_cast<float>(state.range(1));
    const Material picture(
        "../data/tarvex_explosion/explosion00" + std::to_string(shown_frame) + ".png",
        MTL_TEX_REPLACE, false);
    for (auto _ : state)
        view.show([&] {
            picture.activate(true);
            glDisable(GL_LIGHTING);
            glDepthMask(GL_FALSE);
            OpenGLContext::getInstance()->activateBlending();
            glBegin(GL_QUADS);
            for (int i = 0; i < number; ++i) {
                const Point4 p = placeOf(i, number, distance);
                for (const auto& [u, v] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                    glTexCoord2i(u, v);
                    glVertex3f(p.x + size * (0.5F - static_cast<float>(u)),
                               p.y + size * (static_cast<float>(v) - 0.5F), p.z);
                }
            }
            glEnd();
            OpenGLContext::getInstance()->deactivateBlending();
            glDepthMask(GL_TRUE);
        });
}

void setUp(benchmark::internal::Benchmark* bench) {
    for (const float distance : {near, far})
        for (const int number : {0, 10, 40}) bench->Args({number, static_cast<int>(distance)});
    bench->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}
BENCHMARK(explosions)->Apply(setUp);
BENCHMARK(squares)->Apply(setUp);

}  // namespace
