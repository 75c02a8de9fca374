#include "game/live_view.h"

#include "3d/opengl.h"
#include "3d/texture.h"
#include "game/simple_game_camera.h"
#include "main/sdl_context.h"

#include <GL/glu.h>

#include <algorithm>

namespace {

constexpr float field_of_view = 60;  // degrees, vertical
// In world units. Very small and very large objects get planes that let them through.
constexpr float smallest_near_distance = 0.01f;
constexpr float near_distance = 1;
constexpr float far_distance = 500;

/// The camera of the real frame, set aside while it lives. A frame without one has none again.
class CameraPause {
public:
    explicit CameraPause(_CameraInterface& other) : paused(gl->getCurrentCamera()) {
        gl->setCurrentCamera(&other);
    }
    ~CameraPause() {
        if (paused) gl->setCurrentCamera(paused);
    }
    CameraPause(const CameraPause&) = delete;
    CameraPause& operator=(const CameraPause&) = delete;

private:
    OpenGLContext* gl = OpenGLContext::getInstance();
    _CameraInterface* paused;
};

/// `edge`, halved until a window of that size holds the square.
int fitInto(const SDLContext& window, int edge) {
    while (edge > std::min(window.getWidth(), window.getHeight())) edge /= 2;
    return edge;
}

/// A view of what stands `distance` away, and takes up half of that at the most.
void loadProjection(float aspect, float distance) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(field_of_view, aspect,
                   std::clamp(distance / 2, smallest_near_distance, near_distance),
                   std::max(far_distance, 2 * distance));
}

}  // namespace

void _LiveView::follow(float w, float h, const ColorRGBA& f, const ColorRGBA& b,
                       DRWenum mode) const {
    width = w;
    height = h;
    fg = f;
    bg = b;
    draw_mode = mode;
}

bool _LiveView::canTakePicture() const {
    return OpenGLContext::getInstance()->isAccelerated() && width > 0 && height > 0;
}

void _LiveView::takePicture(std::unique_ptr<Texture>& picture, int edge, SimpleGameCamera& camera,
                            const std::function<void()>& scene) const {
    const SDLContext& window = *SDLContext::getInstance();
    const int pixels = fitInto(window, edge);
    {
        const CameraPause pause(camera);
        loadProjection(width / height, camera.getOrientation().getLength());
        glViewport(0, 0, pixels, pixels);

        glClearColor(bg.getRed(), bg.getGreen(), bg.getBlue(), 1);
        OpenGLContext::getInstance()->startFrame(true);
        glClearColor(0, 0, 0, 0);
        scene();

        if (!picture) picture = std::make_unique<Texture>();
        picture->grabFrameBuffer(0, 0, static_cast<unsigned int>(pixels),
                                 static_cast<unsigned int>(pixels));
    }
    glMatrixMode(GL_MODELVIEW);
    glViewport(0, 0, window.getWidth(), window.getHeight());
}

void _LiveView::showPicture(const Texture& picture, float x, float y, float w, float h) {
    glEnable(GL_TEXTURE_2D);
    picture.activate();
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(x, y);
    glTexCoord2f(1, 0);
    glVertex2f(x + w, y);
    glTexCoord2f(1, 1);
    glVertex2f(x + w, y + h);
    glTexCoord2f(0, 1);
    glVertex2f(x, y + h);
    glEnd();
    glDisable(GL_TEXTURE_2D);
}
