#include "audio/music_factory.h"

#include "main/exception.h"

#include <SDL_mixer.h>

#include <iostream>
#include <iterator>

MusicFactory* MusicFactory::instance = nullptr;

namespace {

constexpr int start_volume = 64;
constexpr int no_repeat = 0;

}  // namespace

MusicFactory* MusicFactory::getInstance() {
    if (!instance) instance = new MusicFactory();
    return instance;
}

MusicFactory::MusicFactory() {
    Mix_VolumeMusic(start_volume);
}

void MusicFactory::Release::operator()(_Mix_Music* track) const {
    Mix_FreeMusic(track);
}

void MusicFactory::setVolume(short v) {
    if (v < 0 || v > MIX_MAX_VOLUME) {
        std::cerr << "ERROR (AUDIO): "
                  << "MusicFactory::setVolume: out of volume (0..128)" << std::endl;
        return;
    }
    Mix_VolumeMusic(v);
}

int MusicFactory::getVolume() const {
    throw Exception("MusicFactory::getVolume: sorry, not implemented yet");
}

void MusicFactory::insert(const std::string& file) {
    if (tracks.contains(file))
        throw Exception("MusicFactory::insert: duplicate entry <" + file + ">");
    _Mix_Music* track = Mix_LoadMUS(file.c_str());
    if (!track) throw Exception("MusicFactory::insert: cannot load track <" + file + ">");
    tracks[file].reset(track);
}

void MusicFactory::remove(const std::string& file) {
    const auto track = tracks.find(file);
    if (track == tracks.end())
        throw Exception("MusicFactory::remove: no such entry <" + file + ">");
    if (track == current) current = tracks.end();
    tracks.erase(track);
}

void MusicFactory::clear() {
    tracks.clear();
    rewind();
}

void MusicFactory::moveTo(int i) {
    if (i < 0 || i >= static_cast<int>(tracks.size()))
        throw Exception("MusicFactory::moveTo: invalid index");
    current = std::next(tracks.begin(), i);
}

void MusicFactory::moveTo(const std::string& name) {
    current = tracks.find(name);
}

void MusicFactory::rewind() {
    current = tracks.begin();
}

void MusicFactory::play(int loops) {
    if (current != tracks.end()) Mix_PlayMusic(current->second.get(), loops);
}

void MusicFactory::next() {
    if (current == tracks.end() || std::next(current) == tracks.end()) return;
    play(no_repeat);
    ++current;
}

void MusicFactory::previous() {
    if (current == tracks.end() || current == tracks.begin()) return;
    play(no_repeat);
    --current;
}

void MusicFactory::pause() {
    Mix_PauseMusic();
}

void MusicFactory::stop() {
    Mix_HaltMusic();
}

std::ostream& operator<<(std::ostream& out, const MusicFactory& factory) {
    int number = 0;
    for (const auto& [file, track] : factory.tracks)
        out << ' ' << ++number << ".  " << file << std::endl;
    return out;
}
