#pragma once

#include <optional>
#include <string>

#include "tests/drivers/phone/DebuggerPipe.h"

namespace stagehopper::desktop {

/// A place on a phone's screen, in the units of its pages.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

/// What a finger is to hit: where it is at this moment, or why a finger would miss it.
struct TapTarget {
    std::optional<ScreenPoint> place;
    std::string obstacle;
};

/// Looks for something with this role and exactly this accessible name, scrolls to it, and sees
/// whether it is enabled, at rest and not covered. Of several, the first that a finger would hit.
/// Throws DesktopError when the page is not there to be asked.
[[nodiscard]] TapTarget findTapTarget(DebuggerPipe& page, const std::string& accessibleName,
                                      const std::string& role);

}  // namespace stagehopper::desktop
