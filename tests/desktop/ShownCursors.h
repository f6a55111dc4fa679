#pragma once

#include <string>
#include <vector>

#include "tests/drivers/desktop/VirtualDesktop.h"

namespace stagehopper::desktop {

struct ScreenPoint {
    int x = 0;
    int y = 0;
};

/// For the X server of a desktop whose cursors are looked at.
[[nodiscard]] std::vector<std::string> argumentsForShownCursors();

/// Where the screen shows a cursor, whichever pointer's: pictures of windows leave them out.
[[nodiscard]] std::vector<ScreenPoint> shownCursors(const VirtualDesktop& desktop);

}  // namespace stagehopper::desktop
