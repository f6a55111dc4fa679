#pragma once

#include <string>
#include <string_view>

namespace stagehopper::recording {

/// "title" for "setTitle:"; empty when it is no setter's name.
[[nodiscard]] std::string propertyOfSetter(std::string_view selector);

}  // namespace stagehopper::recording
