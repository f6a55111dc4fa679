#include "ports/linux/x11/MasterKeyboard.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <string>

#include "ports/linux/x11/BackgroundKeyboard.h"
#include "ports/linux/x11/KeyTarget.h"
#include "ports/linux/x11/X11Connection.h"
#include "ports/linux/x11/X11Desktop.h"

namespace stagehopper::linux_port {

using platform::KeyboardEvent;
using platform::Outcome;
using platform::Pid;
using platform::VirtualKey;

namespace {

class XKeyEvent final : public KeyboardEvent {
public:
    XKeyEvent(KeySym symbol, bool down) : symbol_(symbol), down_(down) {}
    [[nodiscard]] KeySym symbol() const { return symbol_; }
    [[nodiscard]] bool isDown() const { return down_; }

private:
    KeySym symbol_;
    bool down_;
};

KeySym symbolFor(VirtualKey key) {
    switch (key) {
        case platform::virtual_key::pageDown:
            return XK_Next;
        case platform::virtual_key::pageUp:
            return XK_Prior;
        case platform::virtual_key::rightArrow:
            return XK_Right;
        case platform::virtual_key::leftArrow:
            return XK_Left;
        default:
            return NoSymbol;
    }
}

}  // namespace

MasterKeyboard::MasterKeyboard(X11Desktop& desktop)
    : desktop_(desktop), keyboard_(std::make_unique<BackgroundKeyboard>()) {}

MasterKeyboard::~MasterKeyboard() = default;

std::unique_ptr<KeyboardEvent> MasterKeyboard::makeKeyboardEvent(VirtualKey key, bool keyDown) {
    const auto symbol = symbolFor(key);
    if (symbol == NoSymbol) return nullptr;
    return std::make_unique<XKeyEvent>(symbol, keyDown);
}

Outcome MasterKeyboard::postToProcess(Pid process, const KeyboardEvent& event) {
    const auto* key = dynamic_cast<const XKeyEvent*>(&event);
    if (key == nullptr) return Outcome::refused("not a key event of this keyboard");
    return key->isDown() ? press(process, key->symbol()) : release(process, key->symbol());
}

Outcome MasterKeyboard::press(Pid process, unsigned long keySymbol) {
    const auto focused = desktop_.focusedWindow();
    const auto window = keyTarget(desktop_.windows(), process, focused ? focused->id : 0);
    if (!window) {
        return Outcome::refused("process " + std::to_string(process) + " has no window");
    }
    auto outcome = keyboard_->press(*window, keySymbol, focusPolicy(desktop_.windowManagerName()));
    if (outcome) held_ = HeldKey{process, keySymbol, *window};
    return outcome;
}

Outcome MasterKeyboard::release(Pid process, unsigned long keySymbol) {
    if (!held_ || held_->process != process || held_->keySymbol != keySymbol) {
        return Outcome::refused("the key was not pressed");
    }
    const auto window = held_->window;
    held_.reset();
    return keyboard_->release(window, keySymbol, focusPolicy(desktop_.windowManagerName()));
}

Outcome MasterKeyboard::postToFocus(const KeyboardEvent& event) {
    const auto* key = dynamic_cast<const XKeyEvent*>(&event);
    if (key == nullptr) return Outcome::refused("not a key event of this keyboard");
    auto& connection = desktop_.connection();
    if (!connection.isOpen()) return Outcome::refused("no X display");
    XErrorTrap trap(connection);
    const auto code = XKeysymToKeycode(connection.display(), key->symbol());
    if (code == 0) return Outcome::refused("the keyboard has no such key");
    XTestFakeKeyEvent(connection.display(), code, key->isDown() ? True : False, CurrentTime);
    if (trap.succeeded()) return Outcome::done();
    return Outcome::refused("the key was not taken: " + trap.reason());
}

}  // namespace stagehopper::linux_port
