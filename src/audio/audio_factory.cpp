#include "audio/audio_factory.h"

#include "main/exception.h"

#include <SDL_mixer.h>

#include <algorithm>

AudioFactory* AudioFactory::instance = nullptr;

namespace {

constexpr int mixing_channels = 16;
constexpr int music_step = 5;
constexpr int loudest_music = 127;

}  // namespace

AudioFactory* AudioFactory::getInstance() {
    if (!instance) instance = new AudioFactory();
    return instance;
}

AudioFactory::AudioFactory() {
    if (Mix_OpenAudio(audio_rate, audio_format, audio_channels, audio_buffers) != 0)
        throw Exception(SDL_GetError());
    Mix_QuerySpec(&audio_rate, &audio_format, &audio_channels);
    Mix_VolumeMusic(volumeMusic);
    setNumAudioChannels(mixing_channels);
}

AudioFactory::~AudioFactory() {
    Mix_CloseAudio();
}

void AudioFactory::setNumAudioChannels(int n) {
    audio_channels = Mix_AllocateChannels(n);
    if (audio_channels == 0) throw Exception(SDL_GetError());
}

int AudioFactory::getVolumeMusic() const {
    return Mix_VolumeMusic(-1);
}

int AudioFactory::getVolume(int c) const {
    return Mix_Volume(c, -1);
}

void AudioFactory::setVolume(int v, int c) {
    if (0 <= v && v <= MIX_MAX_VOLUME) Mix_Volume(c, v);
}

void AudioFactory::incVolumeMusic() {
    applyVolumeMusic(std::min(volumeMusic + music_step, loudest_music));
}

void AudioFactory::decVolumeMusic() {
    applyVolumeMusic(std::max(volumeMusic - music_step, 0));
}

void AudioFactory::applyVolumeMusic(int v) {
    volumeMusic = v;
    Mix_VolumeMusic(volumeMusic);
}

bool AudioFactory::isPlayingMusic() const {
    return Mix_PlayingMusic() == 1;
}

bool AudioFactory::isPlaying(int c) const {
    return Mix_Playing(c) == 1;
}

void AudioFactory::setExpiration(int c, int t) {
    Mix_ExpireChannel(c, t);
}

void AudioFactory::fadeOutMusic(int ms) {
    Mix_FadeOutMusic(ms);
}

void AudioFactory::fadeOut(int c, int ms) {
    Mix_FadeOutChannel(c, ms);
}

void AudioFactory::pauseMusic() {
    Mix_PauseMusic();
}

void AudioFactory::resumeMusic() {
    Mix_ResumeMusic();
}

void AudioFactory::stopMusic() {
    Mix_HaltMusic();
}

void AudioFactory::stop(int c) {
    Mix_HaltChannel(c);
}

std::ostream& operator<<(std::ostream& out, const AudioFactory& factory) {
    return out << "* sampling rate: " << factory.getAudioRate()
               << "\n* channels: " << factory.getNumAudioChannels()
               << "\n* buffer size: " << factory.getAudioBuffers() << " byte";
}
