#include <variant>

#include "app/AppController.h"
#include "app/BridgeMessage.h"
#include "platform/Workspace.h"

namespace stagehopper {

namespace {

// Opens the Accessibility page of the system's privacy settings; every port knows this URL.
constexpr std::string_view accessibilitySettingsUrl =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

template <class... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <class... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

}  // namespace

void AppController::handleBridgeRaw(std::string_view raw) {
    std::visit(Overloaded{
                   [this](BridgeCommand command) {
                       switch (command) {
                           case BridgeCommand::enableSlideControl:
                               return enableSlideControl();
                           case BridgeCommand::openAccessibilitySettings:
                               return openAccessibilitySettings();
                           // Understood, but not acted on until the overlay, the backend
                           // supervision and the network tuning are there.
                           case BridgeCommand::showOverlay:
                           case BridgeCommand::hideOverlay:
                           case BridgeCommand::destroyOverlay:
                           case BridgeCommand::startBundledBackend:
                           case BridgeCommand::stopBundledBackend:
                           case BridgeCommand::requestAwdlBeforeMeeting:
                               return;
                       }
                   },
                   [this](const SlideStep& step) {
                       consumeSlideEvent(step.direction, step.seq, step.source);
                   },
                   [this](const DebugText& debug) { slideNavLog("panel_debug", debug.text); },
                   // Waits for the slide socket.
                   [](const ConnectRequest&) {},
                   [](const UnknownMessage&) {},
               },
               parseBridgeMessage(raw));
}

void AppController::enableSlideControl() {
    slideNavLog("accessibility_prompt_on_toggle_on", "user_initiated=true");
    if (platform_.accessibility.isProcessTrusted()) {
        slideNavLog("accessibility_check", "already_authorized=true");
        return;
    }
    requestAccessibilityIfNeeded();
    showSlideAccessibilityHintThrottled();
}

void AppController::openAccessibilitySettings() {
    slideNavLog("open_accessibility_settings", "user_initiated=true");
    platform_.workspace.open(accessibilitySettingsUrl);
}

}  // namespace stagehopper
