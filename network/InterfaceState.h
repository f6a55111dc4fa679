#pragma once

#include <string_view>

namespace stagehopper {

/// Whether an interface is up, according to the output of `ifconfig`. Empty output means that the
/// interface does not exist. Invalid UTF-8 counts as up: a superfluous prompt is better than none.
bool isInterfaceUp(std::string_view ifconfigOutput);

}  // namespace stagehopper
