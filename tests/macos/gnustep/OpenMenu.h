#pragma once

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

/// Whether a window of GNUstep's, or a menu, is drawn there: it is in front, and empty or no longer
/// chosen in its lower left corner.
[[nodiscard]] bool isDrawn(const VirtualDesktop& desktop, const Area& area);

/// The first menu of GNUstep's menu bar, opened with the pointer. One thread.
class OpenMenu {
public:
    /// Opens it for the program of this window and waits until it is drawn; throws DesktopError.
    OpenMenu(const VirtualDesktop& desktop, Window window);

    /// As a hand does it that gets there before it presses; throws DesktopError.
    void clickLastItem() const;

private:
    const VirtualDesktop& desktop_;
    Area area_;
};

}  // namespace stagehopper::desktop
