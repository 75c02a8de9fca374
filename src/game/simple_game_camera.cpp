#include "game/simple_game_camera.h"

#include <GL/glu.h>

SimpleGameCamera::SimpleGameCamera(const Point4& pos, const Vector4& u, const Point4& t)
    : position(pos), up(u), target(t) {}

void SimpleGameCamera::activate() const {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(position.x, position.y, position.z, target.x, target.y, target.z, up.x, up.y, up.z);
    updateMatrix();
    updateFrustum();
}
