#pragma once

#include <string>

#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

/// A slide's colour as "#C0392B".
[[nodiscard]] std::string hexColour(int slide);

/// Writes a file in one go; throws DesktopError.
void writeFile(const std::filesystem::path& file, const std::string& contents);

}  // namespace stagehopper::desktop
