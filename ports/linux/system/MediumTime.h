#pragma once

#include <ctime>
#include <string>

namespace stagehopper::linux_port {

/// The time of day with seconds, in the medium style of a locale ("en_US.UTF-8", "C"): 3:04:05 PM,
/// 15:04:05. Any thread.
std::string mediumTime(const char* locale, const std::tm& time);

}  // namespace stagehopper::linux_port
