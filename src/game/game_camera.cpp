#include "game/game_camera.h"

#include "3d/matrix.h"
#include "3d/util3d.h"
#include "main/exception.h"
#include "main/log_factory.h"

#include <cmath>
#include <iostream>

namespace {

constexpr float full_turn = 360;  // degrees
constexpr float no_length = 1e-6f;

float turned(float angle, float phi) {
    const float sum = angle + phi;
    return sum > full_turn ? sum - full_turn : sum;
}

}  // namespace

GameCamera::GameCamera(const Point4& pos, const Vector4& ori, const Vector4& up,
                       const Vector4& pos_o)
    : pos_ref(pos), pos_off(pos_o), orientation_ref(ori), up_ref(up) {}

Point4 GameCamera::getTarget() const {
    throw Exception("GameCamera::getTarget: sorry, not implemented yet");
}

void GameCamera::rotateX(float phi) {
    phi_x = turned(phi_x, phi);
}

void GameCamera::rotateY(float phi) {
    phi_y = turned(phi_y, phi);
}

Point4 GameCamera::placeInWorld() const {
    return Matrix4(pos_ref, orientation_ref, up_ref) ^ Point4(pos_off);
}

void GameCamera::setTarget(const Point4& t) {
    const Vector4 to_target(placeInWorld(), t);
    const float ahead = to_target * Vector4(orientation_ref).normalize();
    const float above = to_target * Vector4(up_ref).normalize();
    const float aside = to_target * (up_ref ^ orientation_ref).normalize();

    // The pitch turns about the side axis of the object, not of the turned view: behind the object
    // it works upside down.
    const float back = ahead < 0 ? -1.0f : 1.0f;
    phi_y = util3d::rad2deg(std::atan2(aside, back * std::hypot(above, ahead)));
    phi_x = util3d::rad2deg(std::atan2(back * above, std::abs(ahead)));
}

void GameCamera::activate() const {
    if (!(getAspect() > 0)) {
        logLine(std::cerr, "ERROR (GAME): ", "GameCamera::activate: must set aspect first");
        return;
    }
    c_pos = placeInWorld();
    const Vector4 side = orientation_ref ^ up_ref;
    Vector4 view = orientation_ref;
    view.rotate(up_ref, -phi_y);
    view.rotate(side, -phi_x);

    // Straight up and down the horizon is where it was on the way there.
    Vector4 horizon = view ^ up_ref;
    if (horizon.getLength() < no_length) horizon = side;
    lookAt(c_pos, c_pos + view, horizon.normalize() ^ view);
}

std::ostream& operator<<(std::ostream& out, const GameCamera& camera) {
    return out << "* position: " << camera.pos_ref << " + " << camera.pos_off;
}
