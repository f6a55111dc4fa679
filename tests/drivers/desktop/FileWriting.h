#pragma once

#include <filesystem>
#include <string>

namespace stagehopper::desktop {

/// Writes a file in one go; throws DesktopError.
void writeFile(const std::filesystem::path& file, const std::string& contents);

}  // namespace stagehopper::desktop
