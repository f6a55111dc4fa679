#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/drivers/desktop/WaitFor.h"
#include "tests/drivers/desktop/XDisplay.h"

namespace stagehopper::desktop {

struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The programs' windows as the window manager lists them. One thread.
class Windows {
public:
    explicit Windows(const XDisplay& display) : display_(display) {}

    /// Lowest first.
    [[nodiscard]] std::vector<Window> stacked() const;
    [[nodiscard]] pid_t processOf(Window window) const;
    [[nodiscard]] std::string titleOf(Window window) const;
    [[nodiscard]] bool isFullScreen(Window window) const;
    [[nodiscard]] std::vector<Window> ofProcess(pid_t process) const;
    /// The topmost window whose title contains `title`.
    [[nodiscard]] std::optional<Window> withTitle(std::string_view title) const;
    /// Waits for it; throws DesktopError when it does not come.
    [[nodiscard]] Window waitForTitle(std::string_view title, Limit limit) const;

    /// The window in front, as the window manager says.
    [[nodiscard]] Window active() const;
    /// The window that has the user's keyboard, itself or in a part of it, as the X server says.
    [[nodiscard]] Window focused() const;
    /// On the screen, without its frame.
    [[nodiscard]] std::optional<Area> areaOf(Window window) const;
    /// The windows that a process shows past the window manager, lowest first.
    [[nodiscard]] std::vector<Window> unmanagedOf(pid_t process) const;
    /// What the X server shows, lowest first, with what no window manager lists, a line each: for
    /// an error message.
    [[nodiscard]] std::string outline() const;

    /// Brings a window to the front and waits until it has the keyboard; throws DesktopError.
    void activate(Window window) const;
    void moveTo(Window window, const Area& area) const;
    /// What the cross in the window's corner does.
    void requestClose(Window window) const;

private:
    const XDisplay& display_;
};

}  // namespace stagehopper::desktop
