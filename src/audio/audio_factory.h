#pragma once

#include <SDL.h>

#include <ostream>

/// The sound device and its mixer: short samples on 16 channels, and music beside them. Created by
/// SDLContext once SDL's audio is up, and kept until the process ends. Volumes run from 0 to 128;
/// a channel of -1 stands for all of them.
class AudioFactory {
public:
    /// The volume of every channel. Positional sound is panned below it and never changes it.
    static constexpr int channel_volume = 40;

    /// Opens the device on the first call. Throws Exception when there is none.
    static AudioFactory* getInstance();

    ~AudioFactory();
    AudioFactory(const AudioFactory&) = delete;
    AudioFactory& operator=(const AudioFactory&) = delete;

    /// What the device gave: samples per second, and SDL's word for their format.
    int getAudioRate() const { return audio_rate; }
    Uint16 getAudioFormat() const { return audio_format; }
    /// How many samples can be heard at once.
    int getNumAudioChannels() const { return audio_channels; }
    /// The size of the device's buffer as it was asked for.
    int getAudioBuffers() const { return audio_buffers; }
    /// Throws Exception when the mixer ends up with no channel at all.
    void setNumAudioChannels(int n);

    /// What the mixer itself says.
    int getVolumeMusic() const;
    int getVolume(int c) const;
    /// Does nothing: music stays as loud as at the start until it is stepped up or down.
    void setVolumeMusic(int) {}
    /// Anything but 0 to 128 changes nothing.
    void setVolume(int v, int c);
    /// Steps of 5, up to 127 and down to 0.
    void incVolumeMusic();
    void decVolumeMusic();

    bool isPlayingMusic() const;
    bool isPlaying(int c) const;

    /// Ends what plays on a channel `t` milliseconds from now.
    void setExpiration(int c, int t);
    void fadeOutMusic(int ms);
    void fadeOut(int c, int ms);
    void pauseMusic();
    void resumeMusic();
    void stopMusic();
    void stop(int c);

private:
    AudioFactory();

    void applyVolumeMusic(int v);

    static AudioFactory* instance;

    int volumeMusic = 64;
    int audio_rate = 22050;
    Uint16 audio_format = AUDIO_S16LSB;
    int audio_channels = 2;  ///< stereo until the device is open, then the mixer's channels
    int audio_buffers = 4096;
};

/// Rate, channels and buffer, one on each line; the last line is left open.
std::ostream& operator<<(std::ostream& out, const AudioFactory& factory);
