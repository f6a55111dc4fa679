#pragma once

#include "platform/Menu.h"

namespace stagehopper {

/// The application menu and the edit menu. The edit menu is there for its key equivalents: they
/// work inside the panel's page.
platform::MainMenu mainMenu();

}  // namespace stagehopper
