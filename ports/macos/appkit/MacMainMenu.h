#pragma once

#include "platform/Menu.h"
#include "ports/macos/cocoa/appkit/NSMenu.h"

namespace stagehopper::macos_port {

/// The menu bar in AppKit's form. Main thread only.
[[nodiscard]] cocoa::Owned<cocoa::NSMenu> makeMainMenu(const platform::MainMenu& menu);

}  // namespace stagehopper::macos_port
