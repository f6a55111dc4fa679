#pragma once

#include <optional>
#include <string>
#include <vector>

namespace stagehopper::platform {

/// What a menu item does. Every action goes to the first responder: the focused view first, then
/// its window, then the application.
enum class MenuAction { orderFrontStandardAboutPanel, terminate, cut, copy, paste, selectAll };

struct MenuItem {
    std::string title;
    MenuAction action{};
    /// One lower-case letter, pressed with the platform's command modifier (Command on macOS,
    /// Control on Linux); empty for none.
    std::string keyEquivalent;

    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

/// An absent item is a separator.
using MenuEntry = std::optional<MenuItem>;

struct Menu {
    /// Empty for the application menu: the platform shows the program's name there.
    std::string title;
    std::vector<MenuEntry> entries;

    friend bool operator==(const Menu&, const Menu&) = default;
};

/// The submenus of the menu bar, left to right.
using MainMenu = std::vector<Menu>;

}  // namespace stagehopper::platform
