#include "audio/music_factory.h"

#include "game/game_sound.h"
#include "tests/support/loudspeaker.h"
#include "tests/support/sounds.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// Both steps play the track that they leave. Off the ends, and where a track has gone, all is
// quiet.
TEST(MusicFactory, PlaysWhatItLeavesAndNothingOffItsEnds) {
    const TempDir dir;
    const std::string a = dir.write("a.wav", sounds::wave(1000)),
                      b = dir.write("b.wav", sounds::wave(2000)),
                      c = dir.write("c.wav", sounds::wave(3000));
    MusicFactory& list = *MusicFactory::getInstance();
    const std::pair<std::function<void()>, int> deeds[] = {
        {[&] { list.moveTo(1), list.next(); }, 2},
        {[&] { list.moveTo(2), list.next(); }, 0},
        {[&] { list.moveTo(c), list.previous(); }, 3},
        {[&] { list.moveTo(2), list.previous(), list.play(0); }, 2},
        {[&] { list.previous(); }, 0},
        {[&] { list.remove(a), list.play(0), list.next(), list.previous(); }, 0},
        {[&] { GameSound::getInstance()->playMusic(0, 80); }, 1},
    };
    for (const auto& [deed, track] : deeds) {
        Loudspeaker speaker;
        for (const std::string& file : {c, a, b}) list.insert(file);
        list.rewind();
        Mix_VolumeMusic(AudioFactory::channel_volume);
        deed();
        EXPECT_NEAR(speaker.hear(1000).first, 255 * track, 1) << &deed - &deeds[0].first;
        list.clear();
    }
}

}  // namespace
