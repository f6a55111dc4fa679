#include <array>
#include <charconv>
#include <string>

#include "app/AppController.h"
#include "app/LogDetail.h"
#include "platform/Accessibility.h"
#include "platform/Application.h"
#include "platform/UserInterface.h"
#include "resources/AccessibilityHintScript.h"

namespace stagehopper {

namespace {

/// The shortest decimal form, always with a fraction: "4.0".
std::string decimal(double value) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.begin(), buffer.end(), value).ptr;
    std::string text(buffer.begin(), end);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
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
