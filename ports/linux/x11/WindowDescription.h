#pragma once

#include <vector>

#include "ports/linux/x11/TopLevelWindow.h"

namespace stagehopper::linux_port {

class X11Connection;

/// Describes windows, without their places in the stack, in one round trip however many they are:
/// a slide step looks at all windows several times, and each trip is time that the presenter
/// waits. What is gone is described by nothing but its id. Main thread only, inside an
/// `XErrorTrap`.
std::vector<TopLevelWindow> describeWindows(X11Connection& connection,
                                            const std::vector<WindowId>& ids);

}  // namespace stagehopper::linux_port
