#include "ports/linux/desktop/SecondSeat.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <memory>

#include "ports/linux/desktop/XErrorTrap.h"

namespace stagehopper::linux_port {

using platform::Outcome;

namespace {

constexpr std::array<KeySym, 4> ourKeys{XK_Next, XK_Prior, XK_Right, XK_Left};

struct XFreer {
    void operator()(void* data) const { XFree(data); }
};

}  // namespace

/// Between its ends nobody else's request is served, so that what was verified still holds when
/// the key comes.
class SecondSeat::ServerGrab {
public:
    explicit ServerGrab(X11Connection& connection) : connection_(connection) {
        XGrabServer(connection_.display());
    }
    ~ServerGrab() {
        if (!connection_.isOpen()) return;
        XUngrabServer(connection_.display());
        XFlush(connection_.display());
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    X11Connection& connection_;
};

SecondSeat::SecondSeat() : obstacle_(obstacleToMasterDevices(connection_)) {
    ensureDevices();
}

SecondSeat::~SecondSeat() {
    if (!connection_.isOpen() || devices_.pointer == 0) return;
    const XErrorTrap trap(connection_);
    removeMasterDevices(connection_, devices_);
}

Outcome SecondSeat::press(WindowId window, unsigned long keySymbol, FocusCare care) {
    if (!ensureDevices()) return Outcome::refused(obstacle_);
    XErrorTrap trap(connection_);
    const auto code = keyCode(keySymbol);
    if (code == 0) return Outcome::refused("the keyboard has no such key");
    {
        const ServerGrab grab(connection_);
        // Where our focus stayed beside the user's and the user's then left, the program believes
        // that it has none and drops keys; arriving anew tells it better.
        if (care == FocusCare::leave && !usersFocusIsIn(window)) dropFocus();
        if (placeFocus(window)) {
            XTestFakeKeyEvent(connection_.display(), code, True, CurrentTime);
        }
        if (care == FocusCare::giveBack) {
            dropFocus();
            tellUsersFocus();
        }
        if (trap.allWentWell()) return Outcome::done();
    }
    return Outcome::refused("the window does not take the key: " + trap.reason());
}

Outcome SecondSeat::release(WindowId window, unsigned long keySymbol, FocusCare care) {
    if (!ensureDevices()) return Outcome::refused(obstacle_);
    XErrorTrap trap(connection_);
    const auto code = keyCode(keySymbol);
    const ServerGrab grab(connection_);
    const bool there = placeFocus(window);
    if (!there) dropFocus();
    XTestFakeKeyEvent(connection_.display(), code, False, CurrentTime);
    if (care == FocusCare::giveBack) {
        dropFocus();
        tellUsersFocus();
    } else if (care == FocusCare::leave && !usersFocusIsIn(window)) {
        // Where the user's focus is, ours stays: toolkits do not tell the keyboards apart and
        // would believe that the user's has gone.
        dropFocus();
    }
    if (there && trap.allWentWell()) return Outcome::done();
    return Outcome::refused("the window that took the key press is gone");
}

bool SecondSeat::ensureDevices() {
    if (!connection_.isOpen()) {
        if (obstacle_.empty()) obstacle_ = "the connection to the X server is lost";
        return false;
    }
    if (!obstacle_.empty()) return false;
    if (devices_.areComplete() && devicesAnswer()) return true;
    const XErrorTrap trap(connection_);
    devices_ = findMasterDevices(connection_);
    if (!devices_.areComplete()) {
        makeMasterDevices(connection_);
        devices_ = findMasterDevices(connection_);
    }
    if (!devices_.areComplete()) return false;
    settle();
    return true;
}

bool SecondSeat::devicesAnswer() {
    XErrorTrap trap(connection_);
    static_cast<void>(focusOf(devices_.keyboard));
    return trap.allWentWell();
}

void SecondSeat::settle() {
    auto* display = connection_.display();
    // From here on, key events that this connection makes are our own keyboard's.
    XISetClientPointer(display, None, devices_.pointer);
    silencePointer(connection_, devices_);
    // A crashed predecessor may have left a key down; in no window, nobody sees it come up.
    dropFocus();
    for (const auto key : ourKeys) {
        XTestFakeKeyEvent(display, keyCode(key), False, CurrentTime);
    }
    XSync(display, False);
}

bool SecondSeat::placeFocus(WindowId window) {
    XErrorTrap trap(connection_);
    XISetFocus(connection_.display(), devices_.keyboard, window, CurrentTime);
    const bool there = focusOf(devices_.keyboard) == window;
    return trap.allWentWell() && there;
}

void SecondSeat::dropFocus() {
    XISetFocus(connection_.display(), devices_.keyboard, None, CurrentTime);
}

WindowId SecondSeat::focusOf(int keyboard) {
    Window focus = None;
    XIGetFocus(connection_.display(), keyboard, &focus);
    return focus;
}

void SecondSeat::tellUsersFocus() {
    const auto line = withParents(focusOf(devices_.usersKeyboard));
    // The window manager's frame first, as the server would.
    for (auto window = line.rbegin(); window != line.rend(); ++window) {
        const bool isFocus = *window == line.front();
        sendFocusIn(*window, isFocus ? NotifyNonlinear : NotifyNonlinearVirtual);
    }
}

void SecondSeat::sendFocusIn(WindowId window, int detail) {
    XEvent event{};
    event.xfocus.type = FocusIn;
    event.xfocus.window = window;
    event.xfocus.mode = NotifyNormal;
    event.xfocus.detail = detail;
    XSendEvent(connection_.display(), window, False, FocusChangeMask, &event);
}

std::vector<WindowId> SecondSeat::withParents(WindowId window) {
    std::vector<WindowId> line;
    while (window != None && window != PointerRoot && window != connection_.rootWindow()) {
        line.push_back(window);
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (XQueryTree(connection_.display(), window, &root, &parent, &children, &count) == 0) {
            break;
        }
        const std::unique_ptr<Window, XFreer> owned(children);
        window = parent;
    }
    return line;
}

bool SecondSeat::usersFocusIsIn(WindowId window) {
    const auto line = withParents(focusOf(devices_.usersKeyboard));
    return std::ranges::find(line, window) != line.end();
}

unsigned SecondSeat::keyCode(unsigned long keySymbol) {
    // Nobody else reads this connection's events; among them are changes of the keyboard's map.
    while (connection_.isOpen() && XPending(connection_.display()) > 0) {
        XEvent event;
        XNextEvent(connection_.display(), &event);
        if (event.type == MappingNotify) XRefreshKeyboardMapping(&event.xmapping);
    }
    return XKeysymToKeycode(connection_.display(), keySymbol);
}

}  // namespace stagehopper::linux_port
