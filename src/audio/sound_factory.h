#pragma once

#include <map>
#include <memory>
#include <string>

struct Mix_Chunk;

/// Plays samples on the mixer's channels. A file is read when it is first played and kept for the
/// rest of the run, so that the second shot of a weapon costs no disk access. Works for GameSound
/// alone.
class SoundFactory {
public:
    static SoundFactory* getInstance();

    SoundFactory(const SoundFactory&) = delete;
    SoundFactory& operator=(const SoundFactory&) = delete;

private:
    friend class GameSound;

    SoundFactory() = default;
    ~SoundFactory() = default;

    /// Both play a file `repeat` times more than once, for ever with -1, on the first free channel,
    /// and return the channel; -1 when none was free or the file cannot be played, which is
    /// reported.
    /// The channel keeps the volume, 0 to 128, for what comes after; others leave it as it is.
    int playSound(const std::string& name, short volume, int repeat);
    /// The shares of the two sides, of 255, are this sound's alone.
    int playPanoramaSound(const std::string& name, short vol_right, short vol_left, int repeat);

    void setVolume(int c, unsigned short v);
    /// Ends what plays on a channel and brings it back to the volume that all channels have.
    void freeChannel(int c);

    /// The sample of that name; null, with a report in the name of `operation`, when there is none.
    Mix_Chunk* findSample(const std::string& name, const char* operation);

    struct Release {
        void operator()(Mix_Chunk* chunk) const;
    };

    static SoundFactory* instance;
    std::map<std::string, std::unique_ptr<Mix_Chunk, Release>> sounds;
};
