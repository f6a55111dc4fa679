#include "app/AppController.h"
#include "app/MainMenu.h"
#include "platform/Application.h"
#include "platform/ChildProcess.h"
#include "platform/Dispatch.h"
#include "platform/Screens.h"

namespace stagehopper {

void AppController::applicationDidFinishLaunching() {
    slideNavLog("app_launched", "Stagehopper starting up");
    platform_.application.setActivationPolicy(platform::ActivationPolicy::regular);
    platform_.application.setMainMenu(mainMenu());
    buildPanelWindow();
    launchBackendUnlessHealthy();
    slideNavLog("app_launched", "backend auto-start requested");
    startNativeSlideDiscovery();
    slideNavLog("app_launched", "nativeSlideDiscovery started");
    platform_.application.activate();
    startWifiKeepAlive();
    // Explains why no dialog appears: each is shown only after an action of the user in the panel.
    slideNavLog("app_launched", "no_auto_prompts — awdl_on_meeting_start; accessibility_on_toggle");
    platform_.screens.addObserver(weak_from_this());
}

bool AppController::applicationShouldTerminateAfterLastWindowClosed() {
    return true;
}

void AppController::windowWillClose(const platform::Window* window) {
    if (window == panelWindow.get()) destroyOverlay();
}

void AppController::applicationWillTerminate() {
    appIsTerminating = true;
    if (nativeSlideDiscoveryTimer) nativeSlideDiscoveryTimer->invalidate();
    nativeSlideDiscoveryTimer.reset();
    if (nativeSlidePingTimer) nativeSlidePingTimer->invalidate();
    nativeSlidePingTimer.reset();
    if (nativeSlideReconnectWorkItem) nativeSlideReconnectWorkItem->cancel();
    nativeSlideReconnectWorkItem.reset();
    cancelNativeSlideSocket("app_terminating");
    // Keeps the handle: the completion of a user's stop may drop the member during the wait.
    if (const auto process = backendProcess) {
        process->terminate();
        process->waitUntilExit();
        backendProcess.reset();
    }
    // There is no wait: nothing depends on its end.
    if (keepAliveProcess) keepAliveProcess->terminate();
    if (awdlDisabled) restoreAWDL();
}

}  // namespace stagehopper
