#include "presentation/SlideTargetChoice.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace stagehopper {

namespace {

using namespace std::string_view_literals;

constexpr std::array presentationSuffixes{".ppt"sv, ".pptx"sv, ".pps"sv, ".ppsx"sv,
                                          ".pot"sv, ".potx"sv, ".dps"sv};
constexpr std::array presentationWords{"演示"sv, "幻灯"sv, "presentation"sv};

bool namesPresentation(std::string_view title) {
    return std::ranges::any_of(presentationSuffixes,
                               [title](auto suffix) { return title.ends_with(suffix); }) ||
           std::ranges::any_of(presentationWords, [title](auto word) {
               return title.find(word) != std::string_view::npos;
           });
}

auto rank(const RankedCandidate& ranked) {
    return std::tuple(ranked.priority, ranked.candidate.app.processIdentifier);
}

}  // namespace

std::optional<SlideTargetCandidate> chooseSlideTarget(
    const std::vector<RankedCandidate>& candidates, const SlideTargetHistory& history) {
    const auto first = [&candidates](auto&& matches) -> const SlideTargetCandidate* {
        const auto found = std::ranges::find_if(candidates, matches, &RankedCandidate::candidate);
        return found == candidates.end() ? nullptr : &found->candidate;
    };
    const auto ofProcess = [&first](const std::optional<platform::Pid>& pid) {
        return first([&pid](const SlideTargetCandidate& candidate) {
            return candidate.app.processIdentifier == pid;
        });
    };

    if (const auto* previous = ofProcess(history.lastPid)) return *previous;
    if (const auto* restarted = first([&history](const SlideTargetCandidate& candidate) {
            return candidate.bundleId == history.lastBundleId;
        })) {
        return *restarted;
    }
    if (const auto* inFront = ofProcess(history.frontPid)) return *inFront;

    const auto best = std::ranges::min_element(candidates, {}, rank);
    if (best == candidates.end()) return std::nullopt;
    return best->candidate;
}

bool titleSuggestsSlides(std::string_view normalizedTitle, platform::SlideTitles rule) {
    switch (rule) {
        case platform::SlideTitles::any:
            return true;
        case platform::SlideTitles::pdf:
            return normalizedTitle.ends_with(".pdf");
        case platform::SlideTitles::presentation:
            return namesPresentation(normalizedTitle);
    }
    return true;
}

}  // namespace stagehopper
