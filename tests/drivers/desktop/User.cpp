#include "tests/drivers/desktop/User.h"

#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

// A quick finger's pace: Impress overlooks keys that are down for a shorter time.
constexpr std::chrono::milliseconds keyHold{50};

}  // namespace

void User::click(int x, int y) const {
    pressMouse(x, y);
    releaseMouse();
}

void User::pressMouse(int x, int y) const {
    XTestFakeMotionEvent(display_.get(), -1, x, y, CurrentTime);
    XTestFakeButtonEvent(display_.get(), Button1, True, CurrentTime);
    XSync(display_.get(), False);
}

void User::moveMouse(int x, int y) const {
    XTestFakeMotionEvent(display_.get(), -1, x, y, CurrentTime);
    XSync(display_.get(), False);
}

void User::releaseMouse() const {
    XTestFakeButtonEvent(display_.get(), Button1, False, CurrentTime);
    XSync(display_.get(), False);
}

void User::key(KeySym key, bool down) const {
    const auto code = XKeysymToKeycode(display_.get(), key);
    if (code == 0) throw DesktopError("the keyboard has no key " + std::to_string(key));
    XTestFakeKeyEvent(display_.get(), code, down ? True : False, CurrentTime);
    XSync(display_.get(), False);
}

void User::press(KeySym keySymbol) const {
    key(keySymbol, true);
}

void User::release(KeySym keySymbol) const {
    key(keySymbol, false);
}

void User::strike(const std::vector<KeySym>& keys) const {
    for (const auto keySymbol : keys) press(keySymbol);
    std::this_thread::sleep_for(keyHold);
    std::for_each(keys.rbegin(), keys.rend(), [this](KeySym last) { release(last); });
}

void User::type(std::string_view text) const {
    // The symbols of these characters have the characters' own numbers.
    for (const char character : text) strike({static_cast<KeySym>(character)});
}

}  // namespace stagehopper::desktop
