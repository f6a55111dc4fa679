#pragma once

#include <string>
#include <string_view>

namespace stagehopper {

/// "[slide_nav] event detail", without the blank when there is no detail.
std::string diagnosticMessage(std::string_view event, std::string_view detail);

/// The message as the log file holds it: "[time] message" and a line feed. A message of several
/// lines stays as it is.
std::string diagnosticFileLine(std::string_view time, std::string_view message);

}  // namespace stagehopper
