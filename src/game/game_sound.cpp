#include "game/game_sound.h"

#include "3d/util3d.h"
#include "audio/music_factory.h"
#include "audio/sound_factory.h"
#include "game/camera_management.h"
#include "game/game_camera_interface.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numbers>

GameSound* GameSound::instance = nullptr;

namespace {

constexpr int loudest = 128;
constexpr int unheard = -2;
constexpr int failed = -1;

// Loudness falls evenly to nothing at the hearing range, at any level. A level of 100 percent and a
// loudness of 64 give 32 of the mixer's shares on each side right at the camera.
constexpr double hearing_range = 1500;  // world units
constexpr double loudness_scale = 300000;
constexpr float loudest_ahead = 64;

void report(const char* text) {
    std::cerr << "ERROR (GAME): "
              << "GameSound::" << text << std::endl;
}

bool isKind(SOUNDenum type) {
    return SND_EXPLOSION <= type && type <= SND_MUSIC;
}

/// Whether a sound of this kind is played by its file; says so if not.
bool isSample(SOUNDenum type) {
    if (isKind(type) && type != SND_MUSIC) return true;
    report("playSound: invalid type (use GameSound::playMusic to play music)");
    return false;
}

/// How far to the right of a listener something is: 1 straight to the right, -1 straight to the
/// left, 0 ahead, behind and at the listener's own place.
float panFactor(const Vector4& right, const Vector4& to_object) {
    constexpr double quarter_turn = std::numbers::pi / 2;
    const float angle = util3d::angle(right, to_object).total;
    return std::isfinite(angle) ? static_cast<float>(1 - angle / quarter_turn) : 0;
}

}  // namespace

GameSound* GameSound::getInstance() {
    if (!instance) instance = new GameSound();
    return instance;
}

void GameSound::setVolume(SOUNDenum which, short vol) {
    if (!isKind(which)) return report("setVolume: no such type");
    if (vol < 0 || vol > loudest) return report("setVolume: volume out of range (0..128)");
    volume[which] = vol;
}

short GameSound::getVolume(SOUNDenum which) const {
    if (isKind(which)) return volume[which];
    report("getVolume: no such type");
    return 0;
}

int GameSound::playSound(SOUNDenum type, const std::string& sound, const Point4& pos, short vol,
                         int loops) const {
    if (!isSample(type)) return unheard;
    const _GameCameraInterface* camera = CameraManagement::getInstance()->getCurrentCamera();
    if (vol < 0 || !camera) return unheard;

    const Vector4 to_object(camera->getPosition(), pos);
    const double distance = to_object.getLength();
    const auto vol_abs =
        static_cast<float>((hearing_range - distance) * (volume[type] * vol) / loudness_scale);
    if (!(vol_abs >= 0)) return unheard;  // too far, or nowhere at all

    const float vol_ahead = std::min(vol_abs, loudest_ahead);
    const float pan_factor = panFactor(camera->getOrientation() ^ camera->getUp(), to_object);
    const auto vol_left = static_cast<short>((1 - pan_factor) * vol_ahead);
    const auto vol_right = static_cast<short>((1 + pan_factor) * vol_ahead);
    return SoundFactory::getInstance()->playPanoramaSound(sound, vol_right, vol_left, loops);
}

int GameSound::playSound(SOUNDenum type, const std::string& sound, short vol, int loops) const {
    if (!isSample(type)) return failed;
    if (vol < 0 || vol > loudest) {
        report("playSound: volume out of range (0..128)");
        return failed;
    }
    const auto channel_volume = static_cast<short>(vol * volume[type] / 100.0);
    return SoundFactory::getInstance()->playSound(sound, channel_volume, loops);
}

void GameSound::playMusic(int loops, short vol) const {
    if (vol < -1 || vol > loudest)
        return report("playMusic: volume out of range (0..128, -1 for default)");
    MusicFactory* music = MusicFactory::getInstance();
    if (vol != -1) music->setVolume(static_cast<short>(volume[SND_MUSIC] * vol / 100));
    music->play(loops);
}

void GameSound::setChannelVolume(int channel, short vol) {
    SoundFactory::getInstance()->setVolume(channel, static_cast<unsigned short>(vol));
}

void GameSound::freeChannel(int channel) {
    SoundFactory::getInstance()->freeChannel(channel);
}
