#pragma once

#include <string>
#include <vector>

#include "platform/Workspace.h"

namespace stagehopper {

/// A running program that may hold the presentation.
struct SlideTargetCandidate {
    platform::RunningApplication app;
    /// Never empty.
    std::string bundleId;
    /// Trimmed and not empty, in the order in which the program lists its windows.
    std::vector<std::string> windowTitles;
};

}  // namespace stagehopper
