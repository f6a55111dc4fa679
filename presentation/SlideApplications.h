#pragma once

#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper {

/// The programs that can hold slides on every platform where they exist, best first. A port adds
/// its own behind them.
const std::vector<platform::SlideApplication>& commonSlideApplications();

}  // namespace stagehopper
