#pragma once

#include <string>
#include <string_view>

namespace stagehopper::macos_port {

/// `bytes` as UTF-8, with U+FFFD for each byte that belongs to no well-formed character. Any
/// thread.
[[nodiscard]] std::string wellFormed(std::string_view bytes);

}  // namespace stagehopper::macos_port
