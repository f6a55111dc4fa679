#pragma once

#include <optional>
#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"
#include "ports/linux/x11/X11Connection.h"

namespace stagehopper::linux_port {

/// The X desktop as its window manager describes it: which windows there are, whose they are, and
/// which one the user types into. Main thread only. Without an X display every answer is empty.
class X11Desktop {
public:
    X11Desktop();

    /// The managed windows, oldest first. Each call asks the server anew.
    std::vector<TopLevelWindow> windows();
    /// The managed window that gets the user's keys; absent when none does.
    std::optional<TopLevelWindow> focusedWindow();
    /// What the window manager calls itself; empty without one.
    std::string windowManagerName();
    /// Acts with the user's own keyboard and pointer.
    X11Connection& connection() { return connection_; }

private:
    WindowId managedWindowAbove(WindowId window);

    X11Connection connection_;
};

}  // namespace stagehopper::linux_port
