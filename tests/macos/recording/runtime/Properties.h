#pragma once

#include <string>
#include <string_view>

namespace stagehopper::recording {

/// "title" for "setTitle:"; empty for other names.
[[nodiscard]] std::string propertyOfSetter(std::string_view selector);

}  // namespace stagehopper::recording
