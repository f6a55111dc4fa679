#include <cmath>
#include <string>

#include "app/AppController.h"
#include "app/LogLine.h"
#include "platform/Accessibility.h"
#include "platform/Application.h"
#include "platform/UserInterface.h"
#include "resources/AccessibilityHintScript.h"

namespace stagehopper {

namespace {

/// With one decimal: "4.0". Uses whole numbers, because `std::to_chars` for floating point requires
/// macOS 13.
std::string decimal(double value) {
    const auto tenths = std::lround(value * 10);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

}  // namespace

void AppController::requestAccessibilityIfNeeded() {
    if (platform_.accessibility.isProcessTrusted() || didRequestAccessibilityPrompt) return;
    didRequestAccessibilityPrompt = true;
    slideNavLog("accessibility_prompt_requested", "bringing_panel_forward=true");
    if (panelWindow) panelWindow->makeKeyAndOrderFront();
    platform_.application.activate();
    platform_.accessibility.requestTrust();
}

void AppController::showSlideAccessibilityHintThrottled() {
    const auto now = platform_.clock.now();
    const platform::Duration throttle{slideAccessibilityHintThrottle};
    if (lastSlideAccessibilityHintAt && now - *lastSlideAccessibilityHintAt < throttle) {
        slideNavLog("blocked_no_accessibility",
                    "hint_throttled " +
                        logDetail({{"interval_s", decimal(slideAccessibilityHintThrottle)}}));
        return;
    }
    lastSlideAccessibilityHintAt = now;
    slideNavLog("user_hint_shown", "accessibility_and_restart_hint");
    if (panelWebView) panelWebView->evaluateJavaScript(accessibilityHintScript);
}

}  // namespace stagehopper
