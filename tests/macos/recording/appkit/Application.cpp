#include "tests/macos/recording/appkit/Application.h"

#include <stdexcept>
#include <utility>

#include "tests/macos/recording/appkit/Menus.h"
#include "tests/macos/recording/appkit/Windows.h"
#include "tests/macos/recording/foundation/Notifications.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

cocoa::id delegate() {
    return property(sharedApplication(), "delegate").object();
}

void notifyDelegate(std::string_view selector, std::string_view notification) {
    sendToPort(delegate(), selector, makeNotification(notification, sharedApplication()).get());
}

}  // namespace

cocoa::id sharedApplication() {
    return sharedInstance("NSApplication");
}

/// As macOS 14 and later do for a program that does not define how its windows are archived.
void Application::warnOfInsecureState() {
    const std::string question = "applicationSupportsSecureRestorableState:";
    if (responds(delegate(), question) &&
        sendToPort<bool>(delegate(), question, sharedApplication())) {
        return;
    }
    systemLog_.emplace_back("WARNING: Secure coding is not enabled for restorable state!");
}

void Application::finishLaunching() {
    if (std::exchange(launched_, true)) return;
    warnOfInsecureState();
    notifyDelegate("applicationWillFinishLaunching:",
                   "NSApplicationWillFinishLaunchingNotification");
    notifyDelegate("applicationDidFinishLaunching:", "NSApplicationDidFinishLaunchingNotification");
}

void Application::userPresses(std::string_view title) {
    const auto item = findMenuItem(property(sharedApplication(), "mainMenu").object(), title);
    if (item == nullptr) throw std::logic_error("no menu item " + std::string(title));
    queues::async("main", [this, item = Retained(item)] {
        auto action = performMenuItem(item.get());
        if (!action.empty()) actions.push_back(std::move(action));
    });
}

void Application::systemQuits() {
    queues::async("main", [this] { terminate(); });
}

void Application::run() {
    finishLaunching();
    queues::runUntil([this] { return terminated_; });
    queues::endMain();
}

void Application::terminate() {
    if (std::exchange(terminating_, true)) return;
    const std::string question = "applicationShouldTerminate:";
    constexpr unsigned long now = 1;
    if (responds(delegate(), question) &&
        sendToPort<unsigned long>(delegate(), question, sharedApplication()) != now) {
        terminating_ = false;
        return;
    }
    notifyDelegate("applicationWillTerminate:", "NSApplicationWillTerminateNotification");
    terminated_ = true;
}

void Application::windowWasClosed() {
    queues::async("main", [this] {
        const std::string question = "applicationShouldTerminateAfterLastWindowClosed:";
        if (windows_.ordinaryWindowVisible() || terminated_) return;
        if (sendToPort<bool>(delegate(), question, sharedApplication())) terminate();
    });
}

}  // namespace stagehopper::recording
