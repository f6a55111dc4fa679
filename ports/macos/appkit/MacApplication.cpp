#include "ports/macos/appkit/MacApplication.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "ports/macos/appkit/AppControllerObject.h"
#include "ports/macos/appkit/MacMainMenu.h"
#include "ports/macos/cocoa/foundation/NSProcessInfo.h"

namespace stagehopper::macos_port {

namespace {

/// Without an application object every message would do nothing, and the program would exit at once
/// without an error.
cocoa::NSApplication requiredApplication() {
    const auto application = cocoa::NSApplication::sharedApplication();
    if (!application) {
        std::fputs("Stagehopper: there is no NSApplication\n", stderr);
        std::abort();
    }
    return application;
}

cocoa::Owned<cocoa::NSObject> beginActivity() {
    return cocoa::Owned<cocoa::NSObject>::share(
        cocoa::NSProcessInfo::processInfo().beginActivityWithOptions(
            cocoa::NSActivityUserInitiatedAllowingIdleSystemSleep,
            cocoa::string("Slides are turned while another program is in front")));
}

}  // namespace

MacApplication::MacApplication(AppControllerObject& appController)
    : appController_(appController),
      application_(requiredApplication()),
      activity_(beginActivity()) {}

MacApplication::~MacApplication() {
    application_.setDelegate(nullptr);
    cocoa::NSProcessInfo::processInfo().endActivity(activity_.get());
}

void MacApplication::setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) {
    appController_.setApplicationDelegate(std::move(delegate));
    application_.setDelegate(appController_.object());
}

void MacApplication::setActivationPolicy(platform::ActivationPolicy policy) {
    switch (policy) {
        case platform::ActivationPolicy::regular:
            application_.setActivationPolicy(cocoa::NSApplicationActivationPolicyRegular);
            break;
    }
}

void MacApplication::setMainMenu(const platform::MainMenu& menu) {
    application_.setMainMenu(makeMainMenu(menu).get());
}

void MacApplication::activate() {
    if (application_.respondsToSelector(cocoa::selector<"activate">())) {
        application_.activate();
    } else {
        application_.activateIgnoringOtherApps(true);
    }
}

void MacApplication::terminate() {
    application_.terminate(nullptr);
}

int MacApplication::run() {
    application_.run();
    return EXIT_SUCCESS;
}

}  // namespace stagehopper::macos_port
