#include "ports/linux/atspi/AtSpiRole.h"

#include "platform/Accessibility.h"

namespace stagehopper::linux_port {

bool isWindow(AtSpiRole role) {
    switch (role) {
        case AtSpiRole::alert:
        case AtSpiRole::colorChooser:
        case AtSpiRole::dialog:
        case AtSpiRole::fileChooser:
        case AtSpiRole::fontChooser:
        case AtSpiRole::frame:
        case AtSpiRole::window:
            return true;
        default:
            return false;
    }
}

bool isLayout(AtSpiRole role) {
    switch (role) {
        case AtSpiRole::filler:
        case AtSpiRole::frame:
        case AtSpiRole::grouping:
        case AtSpiRole::internalFrame:
        case AtSpiRole::layeredPane:
        case AtSpiRole::panel:
        case AtSpiRole::redundantObject:
        case AtSpiRole::scrollPane:
        case AtSpiRole::section:
        case AtSpiRole::splitPane:
        case AtSpiRole::viewport:
        case AtSpiRole::window:
            return true;
        default:
            return false;
    }
}

std::string_view menuRole(AtSpiRole role, std::size_t depth, bool hasChildren) {
    namespace names = platform::accessibility_role;
    switch (role) {
        case AtSpiRole::menu:
            return depth == 1 ? names::menuBarItem : names::menu;
        case AtSpiRole::menuItem:
        case AtSpiRole::checkMenuItem:
        case AtSpiRole::radioMenuItem:
        case AtSpiRole::tearOffMenuItem:
            if (depth == 1) return names::menuBarItem;
            return hasChildren ? names::menu : names::menuItem;
        default:
            return names::unknown;
    }
}

}  // namespace stagehopper::linux_port
