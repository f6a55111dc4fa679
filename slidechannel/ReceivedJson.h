#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>

namespace stagehopper {

/// The most levels of nested arrays and objects in a received text: as many as Foundation's decoder
/// accepts. Recursive code is safe at this depth.
inline constexpr int maxJsonNesting = 512;

/// Parses a text from another program. Absent if it is malformed or nested too deeply.
std::optional<nlohmann::json> parseReceivedJson(std::string_view text);

}  // namespace stagehopper
