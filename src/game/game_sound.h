#pragma once

#include <array>
#include <string>

class Point4;

/// The kinds of sound, each with a level of its own.
enum SOUNDenum : int {
    SND_EXPLOSION = 0,
    SND_ENGINE = 1,
    SND_WEAPONFIRE = 2,
    SND_MUSIC = 3,
};

/// The one door through which the game makes noise. Keeps a level for each kind of sound, in
/// percent of what is asked for, and turns a place in space into loudness and sides as heard from
/// the current camera.
class GameSound {
public:
    static GameSound* getInstance();

    GameSound(const GameSound&) = delete;
    GameSound& operator=(const GameSound&) = delete;

    /// Levels go from 0 to 128. What is out of range is reported and changes nothing.
    void setVolume(SOUNDenum which, short vol);
    /// 0, with a report, for no kind of sound.
    short getVolume(SOUNDenum which) const;

    /// Plays a sound file at a place: the fainter the farther, silent at 1500 units, and on the
    /// side where it is. `vol` is any loudness from 0 on; `loops` is 0 for once and -1 for ever.
    /// Returns the channel; -1 when it cannot be played, -2 when it cannot be heard, because it is
    /// too far or there is no camera.
    int playSound(SOUNDenum type, const std::string& sound, const Point4& pos, short vol,
                  int loops) const;
    /// Plays a sound file from nowhere, at a loudness from 0 to 128. Returns the channel or -1.
    int playSound(SOUNDenum type, const std::string& sound, short vol, int loops) const;
    /// Plays the present track of the music. -1 leaves the loudness as it is.
    void playMusic(int loops, short vol) const;

    /// Sets the volume, 0 to 128, of a channel that a caller kept; -1 would be all of them.
    void setChannelVolume(int channel, short vol);
    /// Ends the loop on a channel that a caller kept, and makes the channel as good as new.
    void freeChannel(int channel);

private:
    GameSound() = default;

    static GameSound* instance;
    std::array<short, 4> volume = {50, 5, 75, 50};
};
