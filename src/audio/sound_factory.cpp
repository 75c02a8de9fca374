#include "audio/sound_factory.h"

#include "audio/audio_factory.h"

#include <SDL_mixer.h>

#include <iostream>

SoundFactory* SoundFactory::instance = nullptr;

namespace {

constexpr int no_channel = -1;
constexpr int any_channel = -1;
constexpr int no_time_limit = -1;

/// Holds the mixer's thread up: what is played within is not heard before it is as loud as it is to
/// be, and not by a scrap at the loudness of the sound before it.
class MixerPause {
public:
    MixerPause() { SDL_LockAudio(); }
    ~MixerPause() { SDL_UnlockAudio(); }
    MixerPause(const MixerPause&) = delete;
    MixerPause& operator=(const MixerPause&) = delete;
};

/// Without a device the mixer takes no file, and has no channels either to play a known one on.
bool isDeviceOpen() {
    return Mix_QuerySpec(nullptr, nullptr, nullptr) != 0;
}

/// Whether the mixer can bring a wave file into the device's form. It does not look itself: without
/// channels, or with a rate out of all reason, it writes where it must not. Any other kind of file
/// is the mixer's to judge.
bool isConvertible(const std::string& name) {
    constexpr int lowest_rate = 1000, highest_rate = 200000;  // samples per second
    SDL_AudioSpec form;
    Uint8* samples = nullptr;
    Uint32 size = 0;
    if (!SDL_LoadWAV(name.c_str(), &form, &samples, &size)) return true;
    SDL_FreeWAV(samples);

    const bool can = form.channels > 0 && lowest_rate <= form.freq && form.freq <= highest_rate;
    if (!can) SDL_SetError("Wave file without channels or with an impossible rate");
    return can;
}

}  // namespace

SoundFactory* SoundFactory::getInstance() {
    if (!instance) instance = new SoundFactory();
    return instance;
}

void SoundFactory::Release::operator()(Mix_Chunk* chunk) const {
    Mix_FreeChunk(chunk);
}

// With no channel free, the volume would go to all of them and silence the game.
int SoundFactory::playSound(const std::string& name, short volume, int repeat) {
    Mix_Chunk* sample = findSample(name, "playSound");
    if (!sample) return no_channel;
    const MixerPause pause;
    const int c = Mix_PlayChannelTimed(any_channel, sample, repeat, no_time_limit);
    if (c != no_channel && 0 <= volume && volume <= MIX_MAX_VOLUME) Mix_Volume(c, volume);
    return c;
}

int SoundFactory::playPanoramaSound(const std::string& name, short vol_right, short vol_left,
                                    int repeat) {
    Mix_Chunk* sample = findSample(name, "playPanoramaSound");
    if (!sample) return no_channel;
    const MixerPause pause;
    const int c = Mix_PlayChannelTimed(any_channel, sample, repeat, no_time_limit);
    const bool panned =
        Mix_SetPanning(c, static_cast<Uint8>(vol_left), static_cast<Uint8>(vol_right)) != 0;
    if (!panned) {
        std::cerr << "ERROR (AUDIO): "
                  << "SoundFactory::playPanoramaSound: " << SDL_GetError() << std::endl;
    }
    return c;
}

void SoundFactory::setVolume(int c, unsigned short v) {
    Mix_Volume(c, v);
}

void SoundFactory::freeChannel(int c) {
    Mix_HaltChannel(c);
    Mix_Volume(c, AudioFactory::channel_volume);
}

Mix_Chunk* SoundFactory::findSample(const std::string& name, const char* operation) {
    const auto known = sounds.find(name);
    if (known != sounds.end() && isDeviceOpen()) return known->second.get();

    Mix_Chunk* loaded =
        isConvertible(name) ? Mix_LoadWAV_RW(SDL_RWFromFile(name.c_str(), "rb"), 1) : nullptr;
    if (!loaded) {
        std::cerr << "ERROR (AUDIO): "
                  << "Soundfactory::" << operation << ": cannot load <" << name << "> ("
                  << SDL_GetError() << ")" << std::endl;
        return nullptr;
    }
    sounds[name].reset(loaded);
    return loaded;
}
