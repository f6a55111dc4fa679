#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>

namespace stagehopper {

/// Levels of arrays and objects inside each other that a text from outside may have: as many as
/// Foundation's decoder takes. What walks the values recursively is safe at this depth.
inline constexpr int maxJsonNesting = 512;

/// Parses a text that another program sent. Absent when it is malformed or nested too deeply.
std::optional<nlohmann::json> parseReceivedJson(std::string_view text);

}  // namespace stagehopper
