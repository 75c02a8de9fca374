#include "tests/support/screen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>

namespace {

constexpr int clear_difference = 24;  // of 255, in one of the three colours

auto connect() {
    return std::unique_ptr<Display, decltype(&XCloseDisplay)>(XOpenDisplay(nullptr), XCloseDisplay);
}

bool differs(const screen::Colour& a, const screen::Colour& b) {
    for (const int i : {0, 1, 2})
        if (std::abs(a[i] - b[i]) > clear_difference) return true;
    return false;
}

}  // namespace

screen::Picture screen::capture() {
    const auto display = connect();
    XImage* image = XGetImage(display.get(), DefaultRootWindow(display.get()), 0, 0, width, height,
                              AllPlanes, ZPixmap);
    Picture picture;
    for (size_t i = 0; i < width * height; ++i) {
        const unsigned long pixel = XGetPixel(image, i % width, i / width);
        const auto shifted = [&](int bits) { return static_cast<unsigned char>(pixel >> bits); };
        picture.push_back({shifted(16), shifted(8), shifted(0)});
    }
    XDestroyImage(image);
    return picture;
}

double screen::difference(const Picture& a, const Picture& b) {
    double differing = 0;
    for (size_t i = 0; i < a.size(); ++i) differing += differs(a[i], b[i]);
    return differing / static_cast<double>(a.size());
}

void screen::closeWindow() {
    const auto display = connect();
    Window root = 0, parent = 0, *windows = nullptr;
    unsigned int count = 0;
    XQueryTree(display.get(), DefaultRootWindow(display.get()), &root, &parent, &windows, &count);
    const auto atom = [&](const char* name) { return XInternAtom(display.get(), name, False); };
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = windows[count - 1];
    event.xclient.message_type = atom("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(atom("WM_DELETE_WINDOW"));
    XSendEvent(display.get(), event.xclient.window, False, NoEventMask, &event);
    XFree(windows);
}
