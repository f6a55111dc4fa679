#include "ports/linux/x11/X11Connection.h"

#include <X11/Xlib.h>

#include <utility>

#include "ports/linux/x11/XErrorTrap.h"

namespace stagehopper::linux_port {

X11Connection::X11Connection() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr) return;
    // Xlib would end the program after a lost connection; the trap has noted the loss by then.
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

}  // namespace stagehopper::linux_port
