#include <algorithm>

#include "app/AppController.h"
#include "platform/Accessibility.h"
#include "platform/Workspace.h"
#include "presentation/SlideApplications.h"
#include "presentation/SlideTargetChoice.h"
#include "presentation/TitleMatcher.h"
#include "text/Utf8.h"

namespace stagehopper {

std::optional<int> AppController::slideBundlePriority(const platform::SlideApplication* row) {
    if (row == nullptr) return std::nullopt;
    return row->priority;
}

std::vector<std::string> AppController::windowTitles(platform::Pid pid) {
    const auto application = platform_.accessibility.applicationElement(pid);
    std::vector<std::string> titles;
    for (const auto& window :
         axChildrenAttribute(*application, platform::AccessibilityAttribute::windows)) {
        const auto title = axStringAttribute(*window, platform::AccessibilityAttribute::title);
        if (!title) continue;
        if (const auto text = trimmed(*title); !text.empty()) titles.emplace_back(text);
    }
    return titles;
}

bool AppController::isLikelyPresentationWindow(std::string_view title,
                                               const platform::SlideApplication& row) {
    return titleSuggestsSlides(normalizedTitle(platform_.text, title), row.slideTitles);
}

std::optional<SlideTargetCandidate> AppController::resolveSlideTargetCandidate(
    const std::optional<std::string>& selfBundleId,
    const std::optional<platform::RunningApplication>& front) {
    std::vector<RankedCandidate> candidates;
    for (const auto& running : platform_.workspace.runningApplications()) {
        const auto& bundleId = running.bundleIdentifier;
        if (!bundleId || bundleId == selfBundleId) continue;
        const auto* row = findSlideApplication(*bundleId, platform_.slideApplications);
        const auto priority = slideBundlePriority(row);
        if (!priority) continue;
        const auto titles = windowTitles(running.processIdentifier);
        if (titles.empty()) continue;
        // Preview also shows images and texts. WPS is not asked: its show windows have titles of
        // their own.
        if (row->slideTitles == platform::SlideTitles::pdf &&
            std::ranges::none_of(titles, [&](const std::string& title) {
                return isLikelyPresentationWindow(title, *row);
            })) {
            continue;
        }
        candidates.push_back({{running, *bundleId, titles, row}, *priority});
    }

    SlideTargetHistory history{lastSlideTargetPID, lastSlideTargetBundleId, std::nullopt};
    if (front) history.frontPid = front->processIdentifier;
    return chooseSlideTarget(candidates, history);
}

}  // namespace stagehopper
