#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/Workspace.h"

namespace stagehopper::linux_port {

/// An X window id; 0 is no window.
using WindowId = unsigned long;

/// A window that the window manager manages, as it was when read.
struct TopLevelWindow {
    WindowId id = 0;
    std::optional<platform::Pid> process;
    std::string title;
    /// The two halves of WM_CLASS.
    std::string instanceName;
    std::string className;
    /// Empty for programs that do not set it.
    std::string gtkApplicationId;
    bool fullScreen = false;
    /// Minimized, or, with some window managers, on another desktop.
    bool hidden = false;
    /// A dock or a desktop: never a window that a user works in.
    bool furniture = false;
    /// 0 is the lowest; higher ones cover lower ones.
    std::size_t stackingPosition = 0;
};

}  // namespace stagehopper::linux_port
