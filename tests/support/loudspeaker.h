#pragma once

#include "audio/audio_factory.h"
#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>

/// The sound device of the tests, open while it lives: the real mixer, whose output goes to a file,
/// faster than anyone could listen. All channels are free, and as loud as in the game.
class Loudspeaker {
public:
    Loudspeaker() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", recording.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        AudioFactory& mixer = *AudioFactory::getInstance();  // opens it, but once in a program
        if (!isOpen()) Mix_OpenAudio(22050, AUDIO_S16LSB, 2, 4096);
        mixer.setNumAudioChannels(16);
        mixer.setVolume(AudioFactory::channel_volume, -1);
    }
    ~Loudspeaker() {
        close();
        setenv("SDL_AUDIODRIVER", "dummy", 1);
    }

    /// Waits for the end of what plays, or for more than a second of it, and switches off. The
    /// loudest level that lasts on the left and on the right, for sounds of that level, in the
    /// mixer's shares: up to 255.
    std::pair<int, int> hear(int level = 25500) {
        const auto enough = std::filesystem::file_size(recording) + 200000;
        const auto goesOn = [] { return Mix_Playing(-1) > 0 || Mix_PlayingMusic(); };
        while (goesOn() && std::filesystem::file_size(recording) < enough) SDL_Delay(1);
        close();

        const std::string bytes = readFile(recording);
        const double share = level * AudioFactory::channel_volume / 128.0 / 255;
        const auto loudness = [&](size_t at) {
            short sample;
            std::memcpy(&sample, &bytes[at], sizeof sample);
            return std::abs(sample);
        };
        constexpr size_t lasting = 4 * 300;  // a resampler rings for some frames about an edge
        int peak[2] = {};
        for (size_t i = lasting; i + 1 < bytes.size(); i += 2)
            peak[i / 2 % 2] =
                std::max(peak[i / 2 % 2], std::min(loudness(i), loudness(i - lasting)));
        return {std::lround(peak[0] / share), std::lround(peak[1] / share)};
    }

private:
    static bool isOpen() { return Mix_QuerySpec(nullptr, nullptr, nullptr) > 0; }
    static void close() {
        while (isOpen()) Mix_CloseAudio();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }

    const TempDir dir;
    const std::string recording = dir.write("heard", "");
};
