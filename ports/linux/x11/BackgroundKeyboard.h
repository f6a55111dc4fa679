#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "platform/Outcome.h"
#include "ports/linux/x11/KeyTarget.h"
#include "ports/linux/x11/MasterDevices.h"
#include "ports/linux/x11/X11Connection.h"

namespace stagehopper::linux_port {

/// A keyboard and a pointer of our own beside the user's, on their own connection. The pointer
/// comes with the keyboard; it is grabbed and invisible. Main thread only.
///
/// The devices survive a crash and are found again by name. This object removes the devices that it
/// made. It keeps devices that it found: mutter crashes when a pair that it has seen without our
/// grab is removed and another one is made. It also keeps devices that have just sent a key: GTK
/// ends a program that finds the device of an event gone.
class BackgroundKeyboard {
public:
    BackgroundKeyboard();
    ~BackgroundKeyboard();
    BackgroundKeyboard(const BackgroundKeyboard&) = delete;
    BackgroundKeyboard& operator=(const BackgroundKeyboard&) = delete;

    /// Presses a key in this window. Refused without sending anything when the window does not take
    /// our focus.
    platform::Outcome press(WindowId window, unsigned long keySymbol, FocusPolicy policy);
    /// Releases a key that was pressed in this window. If the window is gone, the key is released
    /// in no window, and the outcome is refused.
    platform::Outcome release(WindowId window, unsigned long keySymbol, FocusPolicy policy);

private:
    class ServerGrab;

    platform::Outcome ensureDevices();
    platform::Outcome acquireDevices();
    void settle();
    bool devicesExist();
    [[nodiscard]] bool isRemovable();
    platform::Outcome placeFocus(WindowId window);
    void clearFocus();
    [[nodiscard]] WindowId focusOf(int keyboard);
    void sendUserFocusIn();
    [[nodiscard]] bool userFocusIsIn(WindowId window);
    /// A window and its ancestors, innermost first, without the root.
    [[nodiscard]] std::vector<WindowId> withParents(WindowId window);
    void sendFocusIn(WindowId window, int detail);
    [[nodiscard]] unsigned keyCode(unsigned long keySymbol);

    X11Connection connection_;
    platform::Outcome support_;
    MasterDevices devices_;
    bool isHeld_ = false;
    bool isOwn_ = false;
    std::optional<std::chrono::steady_clock::time_point> lastUse_;
};

}  // namespace stagehopper::linux_port
