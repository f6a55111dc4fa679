#pragma once

#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper::linux_port {

/// The programs with slides that exist only on Linux, best first.
std::vector<platform::SlideApplication> slideApplications();

}  // namespace stagehopper::linux_port
