#include "main/menu_frame.h"

#include "3d/camera.h"
#include "3d/font.h"
#include "3d/font_factory.h"
#include "3d/opengl.h"
#include "game/background_model.h"
#include "main/exception.h"
#include "main/log_factory.h"
#include "main/menu_factory.h"
#include "main/sdl_context.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {

constexpr const char* title_text = "Tarvex";
constexpr const char* title_font = "3d_font_01";
constexpr float title_scale = 5;
constexpr float camera_distance = 25;

constexpr struct {
    SDLKey key;
    int step;
} focus_keys[] = {
    {SDLK_PLUS, 1},   {SDLK_KP_PLUS, 1},   {SDLK_DOWN, 1}, {SDLK_RIGHT, 1},
    {SDLK_MINUS, -1}, {SDLK_KP_MINUS, -1}, {SDLK_UP, -1},  {SDLK_LEFT, -1},
};

constexpr struct {
    SDLKey key;
    float x, y, z;
} light_keys[] = {
    {SDLK_x, 1, 0, 0},  {SDLK_y, -1, 0, 0}, {SDLK_v, 0, 1, 0},
    {SDLK_c, 0, -1, 0}, {SDLK_n, 0, 0, 1},  {SDLK_b, 0, 0, -1},
};

/// The entry of a table of keys, null for a key that is not in it.
template <typename Table>
auto findKey(const Table& table, SDLKey key) {
    const auto* found = std::find_if(std::begin(table), std::end(table),
                                     [key](const auto& entry) { return entry.key == key; });
    return found == std::end(table) ? nullptr : found;
}

template <typename... Pieces>
void debugLine(const Pieces&... pieces) {
    logLine(std::cout, "!! MAIN(4): ", "MenuFrame::run: ", pieces...);
}

/// Pointer and mouse buttons are there for the menu alone.
void openMouse() {
    SDLContext* sdl = SDLContext::getInstance();
    sdl->enableCursor();
    sdl->enableEvents(SDL_MOUSEBUTTONDOWN);
    sdl->enableEvents(SDL_MOUSEBUTTONUP);
    sdl->disableEvents(SDL_MOUSEMOTION);
}

void closeMouse() {
    SDLContext* sdl = SDLContext::getInstance();
    sdl->disableCursor();
    for (const auto type : {SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP})
        sdl->disableEvents(type);
}

/// The coordinates of the menu, in pixels around the middle of the window, while it lives: nothing
/// is lit, what is drawn last is on top.
class Overlay {
public:
    Overlay() {
        const auto w = static_cast<float>(SDLContext::getInstance()->getWidth());
        const auto h = static_cast<float>(SDLContext::getInstance()->getHeight());
        gl->switchTo2D(0, w, 0, h);
        gl->activateBlending();
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_LIGHTING);
        glTranslatef(w / 2, h / 2, 0);
    }
    ~Overlay() {
        gl->switchTo3D();
        glEnable(GL_DEPTH_TEST);
        gl->deactivateBlending();
    }
    Overlay(const Overlay&) = delete;
    Overlay& operator=(const Overlay&) = delete;

private:
    const OpenGLContext* gl = OpenGLContext::getInstance();
};

}  // namespace

MenuFrame::MenuFrame() : focus(controls.end()) {}

MenuFrame::~MenuFrame() = default;

void MenuFrame::addControl(_MenuControl* mc) {
    controls.emplace_back(mc);
}

void MenuFrame::clearControls() {
    controls.clear();
}

void MenuFrame::setBackground(BackgroundModel* b) {
    background.reset(b);
}

MCRESULTenum MenuFrame::run() {
    if (controls.empty()) throw Exception("MenuFrame::run: no controls");
    openMouse();
    focus = controls.begin();
    (*focus)->setHighlighted(true);

    Camera camera(Point4(0, 0, camera_distance, 1));
    if (!OpenGLContext::getInstance()->getCurrentCamera())
        camera.setAspectRatio(SDLContext::getInstance()->getAspectRatio());
    const ColorRGBA panel_color = MenuFactory::getInstance()->getBackground();

    MCRESULTenum res = MC_NOT_HANDELED;
    for (Uint32 start_ticks = SDL_GetTicks(); res == MC_HANDELED || res == MC_NOT_HANDELED;) {
        drawFrame(camera, panel_color);

        SDL_Event event;
        if (SDLContext::getInstance()->pollEvent(event)) {
            (*focus)->setHighlighted(false);
            debugLine("event caught - type = ", static_cast<int>(event.type));
            res = dispatch(event);
        }
        (*focus)->setHighlighted(true);

        const Uint32 now = SDL_GetTicks();
        if (background) background->update(static_cast<int>(now - start_ticks));
        start_ticks = now;
    }
    (*focus)->setHighlighted(false);
    closeMouse();
    return res;
}

void MenuFrame::drawFrame(const Camera& camera, const ColorRGBA& panel_color) const {
    const OpenGLContext* gl = OpenGLContext::getInstance();
    gl->startFrame(false);
    if (background) background->draw(gl->getDrawMode());
    drawPanel(panel_color);
    drawTitle(camera);
    drawControls();
    gl->endFrame();
}

void MenuFrame::drawPanel(const ColorRGBA& color) const {
    const float right = width / 2, top = height / 2;
    const Overlay overlay;
    glDisable(GL_TEXTURE_2D);  // the model behind may have left one on
    color.activate();
    glBegin(GL_QUADS);
    glVertex2f(-right, -top);
    glVertex2f(right, -top);
    glVertex2f(right, top);
    glVertex2f(-right, top);
    glEnd();
}

// The letters stand in front of the model whatever its size, and are lit like any other model.
void MenuFrame::drawTitle(const Camera& camera) const {
    OpenGLContext* gl = OpenGLContext::getInstance();
    glPushMatrix();
    glLoadIdentity();
    glClear(GL_DEPTH_BUFFER_BIT);
    camera.activate();
    gl->placeLights();
    if (gl->isLighting()) gl->getLightFactory()->activateLighting();
    glScalef(title_scale, title_scale, title_scale);
    FontFactory::getInstance()->getFont(title_font)->write(0, 0, 0, title_text, nullptr, DRAW_FLAT);
    glPopMatrix();
}

void MenuFrame::drawControls() const {
    const Overlay overlay;
    for (const auto& control : controls) control->draw(OpenGLContext::getInstance()->getDrawMode());
}

MCRESULTenum MenuFrame::dispatch(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            return MC_APP_EXIT;
        case SDL_MOUSEBUTTONDOWN:
            if (event.button.state != SDL_PRESSED) return MC_NOT_HANDELED;
            return dispatchMouse(event.button, "SDL_MOUSEBUTTONDOWN",
                                 &_MenuControl::handleMouseDown);
        case SDL_MOUSEBUTTONUP:
            return dispatchMouse(event.button, "SDL_MOUSEBUTTONUP", &_MenuControl::handleMouseUp);
        case SDL_KEYDOWN:
            return dispatchKey(event.key.keysym.sym);
        default:
            return MC_NOT_HANDELED;
    }
}

MCRESULTenum MenuFrame::dispatchMouse(const SDL_MouseButtonEvent& button, const char* name,
                                      MouseHandler handler) {
    const auto w = static_cast<float>(SDLContext::getInstance()->getWidth());
    const auto h = static_cast<float>(SDLContext::getInstance()->getHeight());
    const Point4 place(static_cast<float>(button.x) - w * 0.5f,
                       h * 0.5f - static_cast<float>(button.y), 0, 1);
    debugLine(name, ' ', static_cast<char>(button.state));
    debugLine("handling event ", name, " (", place, ")");

    for (auto control = controls.begin(); control != controls.end(); ++control) {
        const MCRESULTenum res = (**control.*handler)(place);
        if (res == MC_NOT_HANDELED) continue;
        focus = control;
        return res;
    }
    return MC_NOT_HANDELED;
}

MCRESULTenum MenuFrame::dispatchKey(SDLKey key) {
    if (key == SDLK_RETURN) return (*focus)->handleAction(MC_ACTION);
    if (key == SDLK_ESCAPE) return MC_MENU_EXIT;
    if (const auto* focus_key = findKey(focus_keys, key)) {
        moveFocus(focus_key->step);
        return MC_HANDELED;
    }
    moveLight(key);
    return MC_NOT_HANDELED;
}

void MenuFrame::moveFocus(int step) {
    if (step < 0) {
        if (focus == controls.begin()) focus = controls.end();
        --focus;
    } else if (++focus == controls.end()) {
        focus = controls.begin();
    }
}

void MenuFrame::moveLight(SDLKey key) {
    const auto* move = findKey(light_keys, key);
    if (move && background) background->moveLight(Vector4(move->x, move->y, move->z, 1));
}
