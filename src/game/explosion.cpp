#include "game/explosion.h"

#include "3d/animated_sprite.h"
#include "3d/matrix.h"
#include "game/camera_management.h"
#include "game/game_camera_interface.h"
#include "game/game_sound.h"

#include <GL/gl.h>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

/// The screen's x axis as seen from something in direction `towards_camera`. A camera that looks
/// straight along its own up vector has none of its own: some axis of the world stands in.
Vector4 screenAxis(const Vector4& up, const Vector4& towards_camera) {
    for (const Vector4& y : {up, Vector4(0, 1, 0, 1), Vector4(1, 0, 0, 1)}) {
        Vector4 x = y ^ towards_camera;
        if (x.getLength() > 0) return x.normalize();
    }
    return {};
}

/// The frame in the world of a square at `pos` that faces the camera.
std::optional<Matrix4> facing(const _GameCameraInterface* camera, const Point4& pos) {
    if (!camera) return std::nullopt;
    Vector4 z(pos, camera->getPosition());
    if (z.getLength() == 0) return std::nullopt;
    z.normalize();
    return Matrix4(pos, z, screenAxis(camera->getUp(), z) ^ z);
}

const _GameCameraInterface* currentCamera() {
    return CameraManagement::getInstance()->getCurrentCamera();
}

void drawScaled(const AnimatedSprite& sprite, float size) {
    glScalef(size, size, size);
    sprite.drawCurrentFrame();
}

}  // namespace

void drawObjectExplosion(const AnimatedSprite& sprite, const Point4& pos, float size) {
    const auto frame = facing(currentCamera(), pos);
    if (!frame) return;
    glPopMatrix();
    glPushMatrix();
    glMultMatrixf(frame->getFloatp());
    drawScaled(sprite, size);
}

void drawPartExplosion(const AnimatedSprite& sprite, const Point4& pos, float size) {
    const _GameCameraInterface* camera = currentCamera();
    const auto frame = facing(camera, pos);
    if (!frame) return;
    glPushMatrix();
    glLoadMatrixf((*frame * camera->getMatrix()).getFloatp());
    drawScaled(sprite, size);
    glPopMatrix();
}

void soundExplosion(const Point4& pos, float radius) {
    constexpr int loudness_by_radius = 4;
    constexpr short loudest = std::numeric_limits<short>::max();
    const int whole_radius = static_cast<int>(std::min<float>(loudest, radius));
    const int loudness = std::min<int>(loudness_by_radius * whole_radius, loudest);
    GameSound::getInstance()->playSound(SND_EXPLOSION, "../data/explosion.wav", pos,
                                        static_cast<short>(loudness), 0);
}
