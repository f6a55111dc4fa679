#include <string>
#include <utility>
#include <variant>

#include "app/AppController.h"
#include "app/BridgeMessage.h"
#include "platform/Dispatch.h"
#include "platform/WebView.h"
#include "platform/Workspace.h"

namespace stagehopper {

namespace {

// Opens the Accessibility page of the system's privacy settings; every port knows this URL.
constexpr std::string_view accessibilitySettingsUrl =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

// Long enough for the page of a new overlay to load.
constexpr platform::Duration overlayConnectDelay{0.5};

/// Escapes backslashes and double quotes for a string literal in a script.
std::string escapedForScript(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '\\' || character == '"') escaped += '\\';
        escaped += character;
    }
    return escaped;
}

template <class... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <class... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

}  // namespace

void AppController::handleBridgeRaw(std::string_view raw) {
    // Shut-down starts nothing new.
    if (appIsTerminating) return;
    std::visit(Overloaded{
                   [this](BridgeCommand command) {
                       switch (command) {
                           case BridgeCommand::showOverlay:
                               return showOverlay();
                           case BridgeCommand::hideOverlay:
                               return hideOverlay();
                           case BridgeCommand::destroyOverlay:
                               return destroyOverlay();
                           case BridgeCommand::startBundledBackend:
                               bundledBackendUserStopped = false;
                               return launchBackendUnlessHealthy();
                           case BridgeCommand::stopBundledBackend:
                               return stopBundledBackendFromUser();
                           case BridgeCommand::requestAwdlBeforeMeeting:
                               slideNavLog("awdl_prompt_on_meeting_start", "user_initiated=true");
                               return scheduleAwdlOptimizationAfterBackendReady();
                           case BridgeCommand::enableSlideControl:
                               return enableSlideControl();
                           case BridgeCommand::openAccessibilitySettings:
                               return openAccessibilitySettings();
                       }
                   },
                   [this](const SlideStep& step) {
                       consumeSlideEvent(step.direction, step.seq, step.source);
                   },
                   [this](const DebugText& debug) { slideNavLog("panel_debug", debug.text); },
                   [this](const ConnectRequest& request) {
                       connectOverlayAndSocket(std::string(request.serverUrl),
                                               std::string(request.roomCode));
                   },
                   [](const UnknownMessage&) {},
               },
               parseBridgeMessage(raw));
}

void AppController::connectOverlayAndSocket(const std::string& serverUrl,
                                            const std::string& roomCode) {
    connectNativeSlideSocket(serverUrl, roomCode, "panel_wsconn");
    auto script = "window._connectOverlay(\"" + escapedForScript(serverUrl) + "\", \"" +
                  escapedForScript(roomCode) + "\")";
    platform_.dispatch.asyncMainAfter(overlayConnectDelay,
                                      [weak = weak_from_this(), script = std::move(script)] {
                                          const auto self = weak.lock();
                                          if (self && self->overlayWebView)
                                              self->overlayWebView->evaluateJavaScript(script);
                                      });
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
