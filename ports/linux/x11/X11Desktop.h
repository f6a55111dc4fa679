#pragma once

#include <optional>
#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"
#include "ports/linux/x11/X11Connection.h"

namespace stagehopper::linux_port {

/// The X desktop as its window manager describes it: its windows, their processes, and the window
/// with the user's focus. Main thread only. Without an X display every result is empty.
class X11Desktop {
public:
    X11Desktop();

    /// The managed windows, oldest first. Each call queries the server.
    std::vector<TopLevelWindow> windows();
    /// The managed window with the user's focus; absent without one.
    std::optional<TopLevelWindow> focusedWindow();
    /// The window manager's name; empty without one.
    std::string windowManagerName();
    /// The connection whose input is the user's keyboard and pointer.
    X11Connection& connection() { return connection_; }

private:
    WindowId managedWindowAbove(WindowId window);

    X11Connection connection_;
};

}  // namespace stagehopper::linux_port
