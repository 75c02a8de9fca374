#include "3d/opengl.h"
#include "game/game_sound.h"
#include "game/simple_game_camera.h"
#include "tests/support/loudspeaker.h"
#include "tests/support/sounds.h"
#include "tests/support/window.h"

#include <benchmark/benchmark.h>

namespace {

/// One shot heard from the side: the angle, the panning, and a channel, which is free each time or
/// never.
void playAtPlace(benchmark::State& state) {
    window();
    const Loudspeaker speaker;
    const TempDir dir;
    const std::string shot = dir.write("shot.wav", sounds::wave(1000));
    SimpleGameCamera camera(Point4(), Vector4(0, 1, 0, 1), Point4(0, 0, -1, 1));
    OpenGLContext::getInstance()->setCurrentCamera(&camera);
    const GameSound& sound = *GameSound::getInstance();
    const bool free = state.range(0) != 0;
    for (int c = 0; !free && c < 16; ++c) sound.playSound(SND_ENGINE, shot, 0, -1);
    while (state.KeepRunning()) {
        const int channel = sound.playSound(SND_WEAPONFIRE, shot, Point4(100, 50, -200, 1), 100, 0);
        if (free) AudioFactory::getInstance()->stop(channel);
    }
}
BENCHMARK(playAtPlace)->ArgName("free")->Arg(1)->Arg(0);

}  // namespace
