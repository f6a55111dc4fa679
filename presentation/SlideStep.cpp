#include <chrono>
#include <string>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "platform/KeyboardEvents.h"
#include "platform/Workspace.h"
#include "presentation/KeyStrategy.h"
#include "presentation/SlideDirection.h"
#include "presentation/SlideTargetChoice.h"

namespace stagehopper {

namespace {

using platform::AccessibilityAttribute;

// Long enough for a program that reads the keyboard once per frame to see the key down.
constexpr std::chrono::microseconds keyHold{50'000};

constexpr std::string_view absentIdentity = "nil";

std::string frontBundleId(const std::optional<platform::RunningApplication>& front) {
    if (!front || !front->bundleIdentifier) return std::string(absentIdentity);
    return *front->bundleIdentifier;
}

}  // namespace

void AppController::resolveSlideTargetAndSend(SlideDirection direction) {
    const auto selfBundleId = platform_.host.bundleIdentifier();
    const auto front = platform_.workspace.frontmostApplication();
    std::optional<std::string> focusedTitle;
    if (front) {
        const auto application =
            platform_.accessibility.applicationElement(front->processIdentifier);
        if (const auto window =
                axElementAttribute(*application, AccessibilityAttribute::focusedWindow)) {
            focusedTitle = axStringAttribute(*window, AccessibilityAttribute::title);
        }
    }
    slideNavLog("exec_context",
                logDetail({{"ax", platform_.accessibility.isProcessTrusted() ? "true" : "false"},
                           {"front", frontBundleId(front)},
                           {"self", selfBundleId.value_or(std::string(absentIdentity))},
                           {"title", dashIfAbsent(focusedTitle)}}));

    const auto candidate = resolveSlideTargetCandidate(selfBundleId, front);
    if (!candidate) {
        slideNavLog("blocked_no_target", "no_supported_presentation_window " +
                                             logDetail({{"front", frontBundleId(front)}}));
        return;
    }
    sendSlideStep(*candidate, front, direction);
}

void AppController::sendSlideStep(const SlideTargetCandidate& candidate,
                                  const std::optional<platform::RunningApplication>& front,
                                  SlideDirection direction) {
    const auto pid = candidate.app.processIdentifier;
    const auto strategy = keyStrategy(candidate.row);
    const bool isFront = front && front->processIdentifier == pid;
    const std::string detection(detectionWord(strategy, isFront));
    const std::string_view title =
        candidate.windowTitles.empty() ? std::string_view() : candidate.windowTitles.front();
    slideNavLog("target_resolved",
                detection + " " +
                    logDetail({{"bundle", candidate.bundleId},
                               {"strategy", strategy.word},
                               {"pid", strategy.profiled ? std::to_string(pid)
                                                         : std::string(absentIdentity)},
                               {"title", dashIfEmpty(title)}}));

    if (!isFront) {
        // Menu commands act on the program in front, even from another program's menu.
        slideNavLog("menu_path_skipped",
                    logDetail({{"bundle", candidate.bundleId}, {"reason", "background_target"}}));
    } else if (pressSlideMenuCommand(candidate, direction)) {
        rememberSlideTarget(candidate);
        slideNavLog("completed", logDetail({{"path", "menu"}, {"bundle", candidate.bundleId}}));
        return;
    }

    sendSlideKey(pid, strategy, direction);
    rememberSlideTarget(candidate);
    slideNavLog("completed", logDetail({{"path", detection}, {"bundle", candidate.bundleId}}));
}

void AppController::sendSlideKey(platform::Pid process, const KeyStrategy& strategy,
                                 SlideDirection direction) {
    const auto key = strategy.keyFor(direction);
    const auto down = platform_.keyboardEvents.makeKeyboardEvent(key, true);
    const auto up = platform_.keyboardEvents.makeKeyboardEvent(key, false);
    if (!down || !up) {
        slideNavLog("key_dispatch_failed", logDetail({{"strategy", strategy.word}}));
        return;
    }

    slideNavLog(strategy.profiled ? "key_sent" : "key_sent_fallback",
                logDetail({{"strategy", strategy.word},
                           {"keycodes_next/prev", std::to_string(strategy.nextKey) + "/" +
                                                      std::to_string(strategy.previousKey)},
                           {"sent", std::to_string(key)},
                           {"dir", directionWord(direction)},
                           {"dispatch", strategy.dispatchWord()}}));

    const auto post = [&](const platform::KeyboardEvent& event) {
        const auto outcome = strategy.profiled
                                 ? platform_.keyboardEvents.postToProcess(process, event)
                                 : platform_.keyboardEvents.postToFocus(event);
        if (!outcome) {
            slideNavLog("key_undelivered", logDetail({{"strategy", strategy.word},
                                                      {"pid", std::to_string(process)},
                                                      {"reason", outcome.reason()}}));
        }
        return static_cast<bool>(outcome);
    };
    if (!post(*down)) return;
    platform_.clock.sleep(keyHold);
    post(*up);
}

void AppController::rememberSlideTarget(const SlideTargetCandidate& candidate) {
    lastSlideTargetPID = candidate.app.processIdentifier;
    lastSlideTargetBundleId = candidate.bundleId;
}

}  // namespace stagehopper
