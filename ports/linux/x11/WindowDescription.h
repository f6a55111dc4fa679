#pragma once

#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

class X11Connection;

/// Describes windows, without their stacking positions, in one round trip: a slide step reads all
/// windows several times, and the presenter waits for each trip. A window that is gone has only its
/// id. Main thread only, inside an `XErrorTrap`.
std::vector<TopLevelWindow> describeWindows(X11Connection& connection,
                                            const std::vector<WindowId>& ids);

}  // namespace stagehopper::linux_port
