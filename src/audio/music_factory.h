#pragma once

#include <map>
#include <memory>
#include <ostream>
#include <string>

struct _Mix_Music;

/// A list of music tracks in the order of their file names, with a place in it. It does not move on
/// by itself, and neither end leads to the other. Off the list's end nothing plays.
class MusicFactory {
public:
    static MusicFactory* getInstance();

    MusicFactory(const MusicFactory&) = delete;
    MusicFactory& operator=(const MusicFactory&) = delete;

    /// Adds a track; the place in the list stays, which on an empty list is its end. Throws
    /// Exception when the file is in the list already or cannot be loaded.
    void insert(const std::string& file);
    /// Takes a track out. If it was the present one, the place is the end of the list from then on.
    /// Throws Exception when it is not in the list.
    void remove(const std::string& file);
    /// Empties the list.
    void clear();

    /// Goes to the track at an index from 0. Throws Exception outside of the list.
    void moveTo(int i);
    /// Goes to a track, to the end of the list when it is not there.
    void moveTo(const std::string& name);
    void rewind();

    /// Plays the present track, `loops` times or for ever with -1, and stays on it.
    void play(int loops);
    /// Play the present track once and move on, or back. With no further track in that direction
    /// they do nothing.
    void next();
    void previous();
    void pause();
    void stop();

    friend std::ostream& operator<<(std::ostream& out, const MusicFactory& factory);

private:
    friend class GameSound;

    struct Release {
        void operator()(_Mix_Music* track) const;
    };
    using track_list = std::map<std::string, std::unique_ptr<_Mix_Music, Release>>;
    using track_t = track_list::iterator;

    MusicFactory();
    ~MusicFactory() = default;

    /// 0 to 128; anything else is reported and changes nothing.
    void setVolume(short v);
    /// Not there yet: throws Exception.
    int getVolume() const;

    static MusicFactory* instance;
    track_list tracks;
    track_t current = tracks.begin();
};

/// The tracks in their order, numbered from 1, one on each line.
std::ostream& operator<<(std::ostream& out, const MusicFactory& factory);
