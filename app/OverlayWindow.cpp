#include "app/AppController.h"
#include "platform/Panel.h"
#include "platform/Screens.h"
#include "platform/UserInterface.h"
#include "resources/OverlayScript.h"

namespace stagehopper {

namespace {

constexpr const char* overlayPage = "overlay.html";

}  // namespace

std::optional<platform::Rect> AppController::overlayFrame() {
    if (const auto main = platform_.screens.mainScreenFrame()) return main;
    const auto all = platform_.screens.screenFrames();
    if (all.empty()) return std::nullopt;
    return all.front();
}

void AppController::showOverlay() {
    if (overlayWindow) return overlayWindow->orderFrontRegardless();
    const auto frame = overlayFrame();
    if (!frame) return;

    // No message handler: the overlay only displays and sends nothing to the program.
    platform::WebViewConfiguration configuration;
    configuration.userScripts.push_back({std::string(overlayScript)});
    const platform::Rect filled{0, 0, frame->size};
    auto view = platform_.userInterface.makeWebView(filled, configuration);
    view->setDrawsBackground(false);

    auto panel = platform_.userInterface.makePanel({
        .contentRect = *frame,
        .styleMask = platform::panelNonactivating,
        .clearBackground = true,
        .opaque = false,
        .hasShadow = false,
        .hidesOnDeactivate = false,
        .levelAboveShielding = 1,
        .collectionBehavior = platform::canJoinAllSpaces | platform::fullScreenAuxiliary,
        .ignoresMouseEvents = true,
    });
    panel->setContentView(view);
    panel->orderFrontRegardless();

    const auto resources = resourceDir();
    view->loadFile(resources / overlayPage, resources);
    overlayWindow = std::move(panel);
    overlayWebView = std::move(view);
}

void AppController::hideOverlay() {
    if (overlayWindow) overlayWindow->orderOut();
}

void AppController::destroyOverlay() {
    if (overlayWindow) overlayWindow->orderOut();
    overlayWindow.reset();
    overlayWebView.reset();
}

void AppController::screenDidChange() {
    if (!overlayWindow || !overlayWebView) return;
    const auto frame = overlayFrame();
    if (!frame) return;
    overlayWindow->setFrame(*frame);
    overlayWebView->setFrame({0, 0, frame->size});
}

}  // namespace stagehopper
