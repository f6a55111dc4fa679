#pragma once

#include "platform/Menu.h"

namespace stagehopper {

/// The application menu and the edit menu. The edit menu exists for its key equivalents, which work
/// inside the panel's page.
platform::MainMenu mainMenu();

}  // namespace stagehopper
