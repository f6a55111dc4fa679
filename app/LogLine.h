#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace stagehopper {

/// "[slide_nav] event detail", without the blank when there is no detail.
std::string diagnosticMessage(std::string_view event, std::string_view detail);

/// The message as the log file holds it: "[time] message" and a line feed. A message of several
/// lines stays as it is.
std::string diagnosticFileLine(std::string_view time, std::string_view message);

/// "key=value key=value": the detail of a diagnostic line. Values stand as they are.
std::string logDetail(
    std::initializer_list<std::pair<std::string_view, std::string_view>> keysAndValues);

}  // namespace stagehopper
