#include "ports/linux/x11/BackgroundKeyboard.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>

namespace stagehopper::linux_port {

using platform::Outcome;

namespace {

/// After this time a program has handled its key or counts as hung.
constexpr std::chrono::seconds keyHandlingLimit{10};

constexpr std::array<KeySym, 4> ourKeys{XK_Next, XK_Prior, XK_Right, XK_Left};

}  // namespace

/// During its lifetime the server handles no request of another client, so that what we verified
/// still holds when the key is sent.
class BackgroundKeyboard::ServerGrab {
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

BackgroundKeyboard::BackgroundKeyboard() : support_(supportsMasterDevices(connection_)) {
    // A failure now is reported with each key.
    static_cast<void>(ensureDevices());
}

BackgroundKeyboard::~BackgroundKeyboard() {
    if (!connection_.isOpen() || !isHeld_) return;
    const XErrorTrap trap(connection_);
    clearFocus();
    if (isRemovable()) removeMasterDevices(connection_, devices_);
}

bool BackgroundKeyboard::isRemovable() {
    const bool isIdle =
        !lastUse_ || std::chrono::steady_clock::now() - *lastUse_ > keyHandlingLimit;
    return isOwn_ && isIdle && devicesExist();
}

Outcome BackgroundKeyboard::press(WindowId window, unsigned long keySymbol, FocusPolicy policy) {
    if (auto ready = ensureDevices(); !ready) return ready;
    lastUse_ = std::chrono::steady_clock::now();
    XErrorTrap trap(connection_);
    const auto code = keyCode(keySymbol);
    if (code == 0) return Outcome::refused("the keyboard has no such key");
    const ServerGrab grab(connection_);
    // If our focus stayed with the user's and the user's then left, the program believes that it
    // has no focus and drops keys. A new focus event corrects that.
    if (policy == FocusPolicy::clear && !userFocusIsIn(window)) clearFocus();
    auto placed = placeFocus(window);
    if (placed) XTestFakeKeyEvent(connection_.display(), code, True, CurrentTime);
    if (policy == FocusPolicy::restore) {
        clearFocus();
        sendUserFocusIn();
    }
    if (!placed || trap.succeeded()) return placed;
    return Outcome::refused("the window does not take the key: " + trap.reason());
}

Outcome BackgroundKeyboard::release(WindowId window, unsigned long keySymbol, FocusPolicy policy) {
    if (auto ready = ensureDevices(); !ready) return ready;
    lastUse_ = std::chrono::steady_clock::now();
    XErrorTrap trap(connection_);
    const auto code = keyCode(keySymbol);
    const ServerGrab grab(connection_);
    const auto placed = placeFocus(window);
    if (!placed) clearFocus();
    XTestFakeKeyEvent(connection_.display(), code, False, CurrentTime);
    if (policy == FocusPolicy::restore) {
        clearFocus();
        sendUserFocusIn();
    } else if (policy == FocusPolicy::clear && !userFocusIsIn(window)) {
        // Our focus stays where the user's focus is: toolkits do not distinguish the keyboards and
        // would believe that the user's focus has left.
        clearFocus();
    }
    if (placed && trap.succeeded()) return Outcome::done();
    return Outcome::refused("the window that took the key press is gone");
}

Outcome BackgroundKeyboard::ensureDevices() {
    if (!support_) return support_;
    if (!connection_.isOpen()) return Outcome::refused("the connection to the X server is lost");
    if (isHeld_ && devicesExist()) return Outcome::done();
    return acquireDevices();
}

Outcome BackgroundKeyboard::acquireDevices() {
    const XErrorTrap trap(connection_);
    // No program sees the pair before we hold it.
    const ServerGrab grab(connection_);
    isHeld_ = false;
    devices_ = findMasterDevices(connection_);
    isOwn_ = !devices_.areComplete();
    if (isOwn_) {
        if (auto made = makeMasterDevices(connection_); !made) return made;
        devices_ = findMasterDevices(connection_);
    }
    if (auto held = holdPointer(connection_, devices_); !held) return held;
    isHeld_ = true;
    settle();
    return Outcome::done();
}

bool BackgroundKeyboard::devicesExist() {
    const XErrorTrap trap(connection_);
    // By name: another device may have our id after ours were removed by hand.
    return findMasterDevices(connection_) == devices_;
}

void BackgroundKeyboard::settle() {
    auto* display = connection_.display();
    // From here on, key events from this connection come from our own keyboard.
    XISetClientPointer(display, None, devices_.pointer);
    // A crashed instance may have left a key pressed. Without a focus window no program sees the
    // release.
    clearFocus();
    for (const auto key : ourKeys) {
        XTestFakeKeyEvent(display, keyCode(key), False, CurrentTime);
    }
    XSync(display, False);
}

Outcome BackgroundKeyboard::placeFocus(WindowId window) {
    XErrorTrap trap(connection_);
    XISetFocus(connection_.display(), devices_.keyboard, window, CurrentTime);
    const bool there = focusOf(devices_.keyboard) == window;
    if (!trap.succeeded()) {
        return Outcome::refused("the window does not take the key: " + trap.reason());
    }
    if (!there) return Outcome::refused("the window does not take the focus of our keyboard");
    return Outcome::done();
}

void BackgroundKeyboard::clearFocus() {
    XISetFocus(connection_.display(), devices_.keyboard, None, CurrentTime);
}

WindowId BackgroundKeyboard::focusOf(int keyboard) {
    Window focus = None;
    XIGetFocus(connection_.display(), keyboard, &focus);
    return focus;
}

void BackgroundKeyboard::sendUserFocusIn() {
    const auto line = withParents(focusOf(devices_.usersKeyboard));
    // The window manager's frame first, in the server's order.
    for (auto window = line.rbegin(); window != line.rend(); ++window) {
        const bool isFocus = *window == line.front();
        sendFocusIn(*window, isFocus ? NotifyNonlinear : NotifyNonlinearVirtual);
    }
}

void BackgroundKeyboard::sendFocusIn(WindowId window, int detail) {
    XEvent event{};
    event.xfocus.type = FocusIn;
    event.xfocus.window = window;
    event.xfocus.mode = NotifyNormal;
    event.xfocus.detail = detail;
    XSendEvent(connection_.display(), window, False, FocusChangeMask, &event);
}

std::vector<WindowId> BackgroundKeyboard::withParents(WindowId window) {
    std::vector<WindowId> line;
    while (window != None && window != PointerRoot && window != connection_.rootWindow()) {
        line.push_back(window);
        window = connection_.parentOf(window);
    }
    return line;
}

bool BackgroundKeyboard::userFocusIsIn(WindowId window) {
    const auto line = withParents(focusOf(devices_.usersKeyboard));
    return std::ranges::find(line, window) != line.end();
}

unsigned BackgroundKeyboard::keyCode(unsigned long keySymbol) {
    // Only this function reads the connection's events, which include changes of the keyboard
    // mapping.
    while (connection_.isOpen() && XPending(connection_.display()) > 0) {
        XEvent event;
        XNextEvent(connection_.display(), &event);
        if (event.type == MappingNotify) XRefreshKeyboardMapping(&event.xmapping);
    }
    return XKeysymToKeycode(connection_.display(), keySymbol);
}

}  // namespace stagehopper::linux_port
