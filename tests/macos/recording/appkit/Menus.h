#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

// The main menu as the user sees it. Main thread only.

/// One line for each item, indented by its depth: "退出 Stagehopper [q] terminate:", "---" for a
/// separator, the menu's title for an item with a submenu.
[[nodiscard]] std::vector<std::string> menuLines(cocoa::id menu);

/// Searches the menu and its submenus; nil if it is absent.
[[nodiscard]] cocoa::id findMenuItem(cocoa::id menu, std::string_view title);

}  // namespace stagehopper::recording
