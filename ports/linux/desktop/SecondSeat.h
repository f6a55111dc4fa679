#pragma once

#include <string>
#include <vector>

#include "platform/Outcome.h"
#include "ports/linux/desktop/KeyTarget.h"
#include "ports/linux/desktop/MasterDevices.h"
#include "ports/linux/desktop/X11Connection.h"

namespace stagehopper::linux_port {

/// A keyboard and a pointer of our own beside the user's, on a connection of their own. The pointer
/// comes with the keyboard; it is held still and invisible. Main thread only.
///
/// The devices outlive a program that crashed: they are found again by their name. They are removed
/// with this object.
class SecondSeat {
public:
    SecondSeat();
    ~SecondSeat();
    SecondSeat(const SecondSeat&) = delete;
    SecondSeat& operator=(const SecondSeat&) = delete;

    /// Presses a key in this window. Refused, with nothing sent, when our focus cannot be there.
    platform::Outcome press(WindowId window, unsigned long keySymbol, FocusCare care);
    /// Releases a key that was pressed there. When that window is gone, the key is released all
    /// the same, in no window, and the outcome says so.
    platform::Outcome release(WindowId window, unsigned long keySymbol, FocusCare care);

private:
    class ServerGrab;

    bool ensureDevices();
    void settle();
    bool devicesAnswer();
    bool placeFocus(WindowId window);
    void dropFocus();
    [[nodiscard]] WindowId focusOf(int keyboard);
    void tellUsersFocus();
    [[nodiscard]] bool usersFocusIsIn(WindowId window);
    /// A window and the ones around it, innermost first, without the root.
    [[nodiscard]] std::vector<WindowId> withParents(WindowId window);
    void sendFocusIn(WindowId window, int detail);
    [[nodiscard]] unsigned keyCode(unsigned long keySymbol);

    X11Connection connection_;
    /// Why there can be no devices; empty when there can.
    std::string obstacle_;
    MasterDevices devices_;
};

}  // namespace stagehopper::linux_port
