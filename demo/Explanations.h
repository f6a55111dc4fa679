#pragma once

#include <string>
#include <string_view>

namespace stagehopper::desktop {

/// Explains a diagnostic line in plain words; empty for a line that needs no explanation.
[[nodiscard]] std::string explanationOf(std::string_view diagnosticLine);

}  // namespace stagehopper::desktop
