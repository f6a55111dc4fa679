#pragma once

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// Whether a window or a menu of GNUstep is drawn there: it is in front, and its lower left corner
/// is empty or no longer highlighted.
[[nodiscard]] bool isDrawn(const VirtualDesktop& desktop, const Area& area);

/// The first menu of GNUstep's menu bar, opened with the pointer. One thread.
class OpenMenu {
public:
    /// Opens it for the program of this window and waits until it is drawn; throws DesktopError.
    OpenMenu(const VirtualDesktop& desktop, Window window);

    /// Moves the pointer there first, then presses; throws DesktopError.
    void clickLastItem() const;

private:
    const VirtualDesktop& desktop_;
    Area area_;
};

}  // namespace stagehopper::desktop
