#include "tests/support/screen.h"

#include "tests/support/game_run.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdlib>
#include <memory>

namespace {

constexpr int width = 800;
constexpr int height = 600;
constexpr int clear_difference = 24;  // of 255, in one of the three colours

class Server {
public:
    Server() : display(XOpenDisplay(nullptr)) {}
    ~Server() { XCloseDisplay(display); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    Display* get() const { return display; }
    Atom atom(const char* name) const { return XInternAtom(display, name, False); }

    /// The topmost window that can be asked to close: the game's. 0 if there is none.
    Window findGame() const { return find(DefaultRootWindow(display)); }

private:
    bool canClose(Window window) const {
        Atom* protocols = nullptr;
        int count = 0;
        if (!XGetWMProtocols(display, window, &protocols, &count)) return false;
        bool found = false;
        for (int i = 0; i < count; ++i) found |= protocols[i] == atom("WM_DELETE_WINDOW");
        XFree(protocols);
        return found;
    }

    Window find(Window from) const {
        if (canClose(from)) return from;
        Window root = 0, parent = 0, found = 0;
        Window* children = nullptr;
        unsigned int count = 0;
        XQueryTree(display, from, &root, &parent, &children, &count);
        for (unsigned int i = count; i > 0 && !found; --i) found = find(children[i - 1]);
        if (children) XFree(children);
        return found;
    }

    Display* display;
};

}  // namespace

screen::Picture screen::capture() {
    const Server server;
    const Window window = server.findGame();
    if (!window) return {};
    int x = 0, y = 0;
    Window child = 0;
    const Window root = DefaultRootWindow(server.get());
    XTranslateCoordinates(server.get(), window, root, 0, 0, &x, &y, &child);
    XImage* image = XGetImage(server.get(), root, x, y, width, height, AllPlanes, ZPixmap);
    if (!image) return {};
    Picture picture;
    picture.reserve(static_cast<size_t>(width) * height * 3);
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column) {
            const unsigned long pixel = XGetPixel(image, column, row);
            for (const int shift : {16, 8, 0})
                picture.push_back(static_cast<unsigned char>(pixel >> shift & 0xff));
        }
    XDestroyImage(image);
    return picture;
}

double screen::difference(const Picture& a, const Picture& b) {
    if (a.empty() || a.size() != b.size()) return 1;
    size_t differing = 0;
    for (size_t i = 0; i < a.size(); i += 3) {
        bool differs = false;
        for (size_t k = i; k < i + 3; ++k) differs |= std::abs(a[k] - b[k]) > clear_difference;
        differing += differs;
    }
    return static_cast<double>(differing) / (static_cast<double>(a.size()) / 3);
}

void screen::press(const std::string& key) {
    runCommand("xdotool key " + key);
}

void screen::hold(int x, int y) {
    int left = 0, top = 0;
    Window child = 0;
    {
        const Server server;
        XTranslateCoordinates(server.get(), server.findGame(), DefaultRootWindow(server.get()), 0,
                              0, &left, &top, &child);
    }
    runCommand("xdotool mousemove " + std::to_string(left + x) + ' ' + std::to_string(top + y) +
               " mousedown 1");
}

void screen::release() {
    runCommand("xdotool mouseup 1");
}

void screen::click(int x, int y) {
    hold(x, y);
    release();
}

void screen::closeWindow() {
    const Server server;
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = server.findGame();
    event.xclient.message_type = server.atom("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(server.atom("WM_DELETE_WINDOW"));
    XSendEvent(server.get(), event.xclient.window, False, NoEventMask, &event);
    XFlush(server.get());
}
