#pragma once

#include <string_view>

namespace stagehopper::macos_port {

/// Whether Foundation may decode `text`: well-formed UTF-8 and the syntax of RFC 8259, an array or
/// an object at the top, at most `platform::maxJsonNesting` levels, surrogates only in pairs.
///
/// Foundation's decoder also accepts UTF-16 and UTF-32, and what else it accepts depends on the
/// version of the system. Any thread.
[[nodiscard]] bool isStrictJson(std::string_view text);

}  // namespace stagehopper::macos_port
