#include "app/AppController.h"
#include "app/MainMenu.h"
#include "platform/Application.h"
#include "platform/Dispatch.h"

namespace stagehopper {

// Not there yet, and therefore not in these sequences: looking for and starting the backend,
// meeting discovery, the Wi-Fi keep-alive, following screen changes; their ends at quit, and the
// log lines that report them.

void AppController::applicationDidFinishLaunching() {
    slideNavLog("app_launched", "Stagehopper starting up");
    platform_.application.setActivationPolicy(platform::ActivationPolicy::regular);
    platform_.application.setMainMenu(mainMenu());
    buildPanelWindow();
    platform_.application.activate();
    // Says why no dialog was seen: each is raised only when the user acts in the panel.
    slideNavLog("app_launched", "no_auto_prompts — awdl_on_meeting_start; accessibility_on_toggle");
}

bool AppController::applicationShouldTerminateAfterLastWindowClosed() {
    return true;
}

void AppController::applicationWillTerminate() {
    appIsTerminating = true;
    if (nativeSlideDiscoveryTimer) nativeSlideDiscoveryTimer->invalidate();
    nativeSlideDiscoveryTimer.reset();
    if (nativeSlidePingTimer) nativeSlidePingTimer->invalidate();
    nativeSlidePingTimer.reset();
    if (nativeSlideReconnectWorkItem) nativeSlideReconnectWorkItem->cancel();
    nativeSlideReconnectWorkItem.reset();
}

}  // namespace stagehopper
