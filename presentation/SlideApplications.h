#pragma once

#include <string_view>
#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper {

/// The programs that can hold slides on every platform where they exist, best first. A port adds
/// its own behind them.
const std::vector<platform::SlideApplication>& commonSlideApplications();

/// The row of a program among the common ones and then among `portRows`; null when it has none.
const platform::SlideApplication* findSlideApplication(
    std::string_view bundleId, const std::vector<platform::SlideApplication>& portRows);

}  // namespace stagehopper
