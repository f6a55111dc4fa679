#pragma once

#include <string_view>

namespace stagehopper {

/// Whether an interface is up, by what `ifconfig` writes about it. Nothing at all means that there
/// is no such interface. What is no UTF-8 counts as up: better one prompt too many.
bool isInterfaceUp(std::string_view ifconfigOutput);

}  // namespace stagehopper
