#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

/// The window of `process` that receives its keys: its full-screen window, which is the slide show,
/// else the one with the user's focus, else its topmost. Minimized windows only when there is no
/// other. Absent when the process has no suitable window.
std::optional<WindowId> keyTarget(const std::vector<TopLevelWindow>& windows, platform::Pid process,
                                  WindowId focused);

/// What a window manager requires of the focus of our keyboard after a key.
enum class FocusPolicy {
    /// It keeps the keyboards apart. We clear our focus, because a background window should not
    /// believe that it has the focus.
    clear,
    /// It reacts when our focus leaves a window. Our focus stays where the key went.
    keep,
    /// It takes the focus of any keyboard for the user's. We clear our focus and send it the
    /// user's real focus.
    restore,
};

FocusPolicy focusPolicy(std::string_view windowManager);

}  // namespace stagehopper::linux_port
