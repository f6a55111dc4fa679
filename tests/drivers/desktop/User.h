#pragma once

#include <X11/keysym.h>

#include <string_view>
#include <vector>

#include "tests/drivers/desktop/XDisplay.h"

namespace stagehopper::desktop {

/// The person at the keyboard and the mouse: events that no program can distinguish from real ones.
class User {
public:
    explicit User(const XDisplay& display) : display_(display) {}

    void click(int x, int y) const;
    // With the first button of the mouse, for what is dragged.
    void pressMouse(int x, int y) const;
    void moveMouse(int x, int y) const;
    void releaseMouse() const;
    void press(KeySym key) const;
    void release(KeySym key) const;
    /// Presses the keys in order and releases them in reverse: {XK_Control_L, XK_q}.
    void strike(const std::vector<KeySym>& keys) const;
    /// Letters, digits and blanks as on the keys, without Shift.
    void type(std::string_view text) const;

private:
    void key(KeySym key, bool down) const;

    const XDisplay& display_;
};

}  // namespace stagehopper::desktop
