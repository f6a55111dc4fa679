#pragma once

#include <string_view>
#include <vector>

#include "platform/SlideApplication.h"

namespace stagehopper {

/// The programs that can show slides, the same on all platforms where they exist, best first. A
/// port appends its own programs.
const std::vector<platform::SlideApplication>& commonSlideApplications();

/// The row of a program among the common ones and then among `portRows`; null when it has none.
const platform::SlideApplication* findSlideApplication(
    std::string_view bundleId, const std::vector<platform::SlideApplication>& portRows);

}  // namespace stagehopper
