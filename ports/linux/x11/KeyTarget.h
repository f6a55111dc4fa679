#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

/// The window of `process` that keys for it go to: its full-screen one, which is the slide show,
/// else the one with the user's focus, else its topmost; minimised ones only when there is no
/// other. Absent when the process has no window to work in.
std::optional<WindowId> keyTarget(const std::vector<TopLevelWindow>& windows, platform::Pid process,
                                  WindowId focused);

/// What has to be done about the focus of a second keyboard, for the sake of a window manager.
enum class FocusCare {
    /// It keeps the keyboards apart. Our focus leaves the target after the key, as a background
    /// window should not believe that it has the focus.
    leave,
    /// It reacts when our focus leaves a window: the focus stays where the key went.
    stay,
    /// It takes the focus of any keyboard for the user's, and must be told afterwards where the
    /// user's really is.
    giveBack,
};

FocusCare focusCare(std::string_view windowManager);

}  // namespace stagehopper::linux_port
