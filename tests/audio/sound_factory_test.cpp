#include "game/game_sound.h"
#include "main/sdl_context.h"
#include "tests/support/capture.h"
#include "tests/support/failure.h"
#include "tests/support/loudspeaker.h"
#include "tests/support/sounds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <vector>

namespace {

// A complaint each time, and silence, until the file is there; then it is kept, and the file can
// go.
TEST(SoundFactory, ReadsAFileOnceAndComplainsOfWhatIsNoSound) {
    const Loudspeaker speaker;
    const TempDir dir;
    const std::string file = dir / "tone.wav";
    const auto play = [&] { return GameSound::getInstance()->playSound(SND_ENGINE, file, 9, 0); };
    const std::string missing = "missing";
    std::vector<std::string> contents = {missing, "no sound", sounds::wave(1, 0),
                                         sounds::wave(1, 1, 1), sounds::wave(1, 1, 1000000000)};
    // The layer over SDL 2, with versions from 1.2.50 on, plays what there is of a file cut short.
    if (SDL_Linked_Version()->patch < 50) contents.push_back(sounds::wave(1).substr(0, 99));
    for (const std::string& content : contents) {
        if (content != missing) dir.write("tone.wav", content);
        const Capture errors(std::cerr);
        EXPECT_EQ(play(), -1);
        EXPECT_THAT(errors.text(),
                    testing::MatchesRegex("ERROR .AUDIO.: Soundfactory::playSound: cannot load <" +
                                          file + "> [(].+[)]\n"));
    }
    dir.write("tone.wav", sounds::wave(1));
    EXPECT_GE(play(), 0);
    std::filesystem::remove(file);
    EXPECT_GE(play(), 0);
}

// A crowded fight takes nothing away from what is heard already.
TEST(SoundFactory, WithAllChannelsBusyTheRestKeepItsVolume) {
    Loudspeaker speaker;
    const TempDir dir;
    const std::string loop = dir.write("loop.wav", sounds::wave(25500 / 16));
    GameSound& sound = *GameSound::getInstance();
    AudioFactory& mixer = *AudioFactory::getInstance();
    for (int c = 0; c < 16; ++c) EXPECT_EQ(sound.playSound(SND_ENGINE, loop, 128, -1), c);
    EXPECT_EQ(mixer.getVolume(15), 6) << "5 percent of 128";
    for (int volume : {40, 129}) mixer.setVolume(volume, -1);
    EXPECT_EQ(sound.playSound(SND_ENGINE, loop, 0, -1), -1);
    EXPECT_EQ(mixer.getVolume(-1), 40);
    sound.setChannelVolume(4, 0);
    sound.freeChannel(4);
    EXPECT_EQ(mixer.getVolume(4), 40);
    EXPECT_NEAR(speaker.hear().first, 255 * 15 / 16, 3);
}

// Only a program of its own can start up as the game does.
void startUp(const char* driver) {
    setenv("SDL_AUDIODRIVER", driver, 1);
    const Capture log(std::cout);
    std::cerr << failureOf([&] {
        SDLContext::init(SDL_INIT_AUDIO, 1, 1);
        std::cerr << log.text() << AudioFactory::getInstance()->getVolume(15) << ", ";
    });
    std::_Exit(0);
}

TEST(AudioFactory, StartsWithTheProgramAndHasItsOwnVolumes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(startUp("dummy"), testing::ExitedWithCode(0),
                testing::Eq("SDL: initializing audio...\nSDL: AudioFactory:\n"
                            "* sampling rate: 22050\n* channels: 16\n* buffer size: 4096 byte\n"
                            "40, nothing thrown"));
    EXPECT_EXIT(startUp("nosuch"), testing::ExitedWithCode(0),
                testing::MatchesRegex("No available audio device|Audio target .* not available"));
}

}  // namespace
