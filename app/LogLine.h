#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace stagehopper {

/// "[slide_nav] event detail"; without the second blank if the detail is empty.
std::string diagnosticMessage(std::string_view event, std::string_view detail);

/// The message as a line of the log file: "[time] message" and a line feed. A message of several
/// lines is not changed.
std::string diagnosticFileLine(std::string_view time, std::string_view message);

/// "key=value key=value": the detail of a diagnostic line. Values are not changed.
std::string logDetail(
    std::initializer_list<std::pair<std::string_view, std::string_view>> keysAndValues);

/// The text, or "-" when it is empty.
std::string_view dashIfEmpty(std::string_view text);

/// The text, even an empty one, or "-" when it is absent. A view of `text`.
std::string_view dashIfAbsent(const std::optional<std::string>& text);

}  // namespace stagehopper
