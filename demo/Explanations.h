#pragma once

#include <string>
#include <string_view>

namespace stagehopper::desktop {

/// What a diagnostic line tells, in plain words; empty for a line that speaks for itself.
[[nodiscard]] std::string explanationOf(std::string_view diagnosticLine);

}  // namespace stagehopper::desktop
