#include "ports/linux/x11/X11Connection.h"

#include <X11/Xlib.h>

#include <array>
#include <utility>

#include "ports/linux/x11/XPointer.h"

namespace stagehopper::linux_port {

namespace {

// Xlib's handlers are global and have no user data.
XErrorTrap* innermost = nullptr;
XErrorHandler errorHandlerBefore = nullptr;
XIOErrorHandler lossHandlerBefore = nullptr;

/// Whether the server has handled every request. True when the last request had a reply and it has
/// arrived.
bool isAnswered(Display* display) {
    return XLastKnownRequestProcessed(display) + 1 == XNextRequest(display);
}

}  // namespace

X11Connection::X11Connection() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr) return;
    // Xlib would end the program after a lost connection. By then the trap has noted the loss.
    XSetIOErrorExitHandler(
        display_, [](Display*, void*) {}, nullptr);
}

X11Connection::~X11Connection() {
    if (display_ == nullptr) return;
    const XErrorTrap trap(*this);
    XCloseDisplay(std::exchange(display_, nullptr));
}

unsigned long X11Connection::rootWindow() const {
    return DefaultRootWindow(display_);
}

unsigned long X11Connection::parentOf(unsigned long window) const {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display_, window, &root, &parent, &children, &count) == 0) return None;
    const XPointer<Window> owned(children);
    return parent;
}

struct XErrorTrap::Handlers {
    static int error(Display* display, XErrorEvent* event) {
        for (auto* trap = innermost; trap != nullptr; trap = trap->outer_) {
            if (trap->connection_.display() != display) continue;
            if (trap->errorCode_ == 0) trap->errorCode_ = event->error_code;
            return 0;
        }
        return errorHandlerBefore != nullptr ? errorHandlerBefore(display, event) : 0;
    }

    static int loss(Display* display) {
        for (auto* trap = innermost; trap != nullptr; trap = trap->outer_) {
            if (trap->connection_.display() != display) continue;
            trap->connection_.noteLost();
            return 0;
        }
        return lossHandlerBefore != nullptr ? lossHandlerBefore(display) : 0;
    }
};

XErrorTrap::XErrorTrap(X11Connection& connection) : connection_(connection), outer_(innermost) {
    if (outer_ == nullptr) {
        errorHandlerBefore = XSetErrorHandler(&Handlers::error);
        lossHandlerBefore = XSetIOErrorHandler(&Handlers::loss);
    }
    innermost = this;
}

XErrorTrap::~XErrorTrap() {
    // Errors of pending requests must not reach the handler that is restored.
    if (connection_.isOpen() && !isAnswered(connection_.display()))
        XSync(connection_.display(), False);
    innermost = outer_;
    if (outer_ == nullptr) {
        XSetErrorHandler(errorHandlerBefore);
        XSetIOErrorHandler(lossHandlerBefore);
    }
}

bool XErrorTrap::succeeded() {
    if (connection_.isOpen()) XSync(connection_.display(), False);
    return connection_.isOpen() && errorCode_ == 0;
}

std::string XErrorTrap::reason() const {
    if (!connection_.isOpen()) return "no connection to the X server";
    if (errorCode_ == 0) return {};
    std::array<char, 128> text{};
    XGetErrorText(connection_.display(), errorCode_, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace stagehopper::linux_port
