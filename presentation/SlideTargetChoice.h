#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SlideApplication.h"
#include "platform/Workspace.h"

namespace stagehopper {

/// A running program that may show the presentation.
struct SlideTargetCandidate {
    platform::RunningApplication app;
    /// Never empty.
    std::string bundleId;
    /// Trimmed, not empty, in the program's order.
    std::vector<std::string> windowTitles;
    /// Its row in the table of slide applications; null for a program that has none.
    const platform::SlideApplication* row = nullptr;
};

/// The previous target and the program in front.
struct SlideTargetHistory {
    std::optional<platform::Pid> lastPid;
    std::optional<std::string> lastBundleId;
    std::optional<platform::Pid> frontPid;
};

/// A candidate with its rank, lower first.
struct RankedCandidate {
    SlideTargetCandidate candidate;
    int priority = 0;
};

/// The candidate to step: the previous process, else the previous product, else the one in front,
/// else the best rank and, among equals, the lowest process id. The previous one precedes the one
/// in front so that a brief switch to another program does not redirect the remote.
std::optional<SlideTargetCandidate> chooseSlideTarget(
    const std::vector<RankedCandidate>& candidates, const SlideTargetHistory& history);

/// Whether a window with this title shows slides, by the rule of its program. `normalizedTitle` is
/// folded, trimmed and lower-case.
bool titleSuggestsSlides(std::string_view normalizedTitle, platform::SlideTitles rule);

}  // namespace stagehopper
