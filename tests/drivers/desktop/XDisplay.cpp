#include "tests/drivers/desktop/XDisplay.h"

#include <X11/Xatom.h>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

// The handler runs in the thread whose request or answer it is about.
thread_local bool errorSeen = false;

int noteError(Display* /*display*/, XErrorEvent* /*error*/) {
    errorSeen = true;
    return 0;
}

}  // namespace

XDisplay::XDisplay(const std::string& name) : display_(XOpenDisplay(name.c_str())) {
    if (!display_) throw DesktopError("the X server " + name + " does not answer");
    XSetErrorHandler(noteError);
}

Atom XDisplay::atom(const char* name) const {
    return XInternAtom(get(), name, False);
}

bool XDisplay::accepts(const std::function<void()>& requests) const {
    XSync(get(), False);
    errorSeen = false;
    requests();
    XSync(get(), False);
    return !errorSeen;
}

XDisplay::Property XDisplay::read(Window window, const char* name, int format) const {
    Atom type = None;
    int foundFormat = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    const bool wasAccepted = accepts([&] {
        XGetWindowProperty(get(), window, atom(name), 0, 4096, False, AnyPropertyType, &type,
                           &foundFormat, &count, &rest, &data);
    });
    Property property{std::unique_ptr<unsigned char, FreedByX>(data), count};
    if (!wasAccepted || data == nullptr || foundFormat != format) property.count = 0;
    return property;
}

std::vector<unsigned long> XDisplay::numbers(Window window, const char* property) const {
    const auto found = read(window, property, 32);
    // Xlib hands 32-bit values over as longs.
    const auto* values = reinterpret_cast<const unsigned long*>(found.data.get());
    return {values, values + found.count};
}

std::string XDisplay::text(Window window, const char* property) const {
    const auto found = read(window, property, 8);
    if (found.count == 0) return {};
    return {reinterpret_cast<const char*>(found.data.get()), found.count};
}

Time XDisplay::time() const {
    // Every change of a property is announced with its time.
    const Window window = XCreateSimpleWindow(get(), root(), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(get(), window, PropertyChangeMask);
    XChangeProperty(get(), window, XA_WM_NAME, XA_STRING, 8, PropModeAppend, nullptr, 0);
    XEvent event{};
    XWindowEvent(get(), window, PropertyChangeMask, &event);
    XDestroyWindow(get(), window);
    return event.xproperty.time;
}

void XDisplay::askWindowManager(Window window, const char* message,
                                std::array<long, 5> data) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = atom(message);
    event.xclient.format = 32;
    for (std::size_t i = 0; i < data.size(); ++i) event.xclient.data.l[i] = data[i];
    XSendEvent(get(), root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
    XFlush(get());
}

}  // namespace stagehopper::desktop
