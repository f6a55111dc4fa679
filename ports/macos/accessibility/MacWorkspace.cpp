#include "ports/macos/accessibility/MacWorkspace.h"

#include "ports/macos/cocoa/appkit/NSWorkspace.h"

namespace stagehopper::macos_port {

namespace {

platform::RunningApplication toRunningApplication(cocoa::NSRunningApplication application) {
    platform::RunningApplication running{application.processIdentifier(), std::nullopt};
    if (const auto identifier = application.bundleIdentifier()) {
        running.bundleIdentifier = cocoa::text(identifier);
    }
    return running;
}

}  // namespace

std::vector<platform::RunningApplication> MacWorkspace::runningApplications() {
    const auto applications = cocoa::elements<cocoa::NSRunningApplication>(
        cocoa::NSWorkspace::sharedWorkspace().runningApplications());
    std::vector<platform::RunningApplication> running;
    running.reserve(applications.size());
    for (const auto application : applications) {
        running.push_back(toRunningApplication(application));
    }
    return running;
}

std::optional<platform::RunningApplication> MacWorkspace::frontmostApplication() {
    const auto application = cocoa::NSWorkspace::sharedWorkspace().frontmostApplication();
    if (!application) return std::nullopt;
    return toRunningApplication(application);
}

bool MacWorkspace::open(std::string_view url) {
    const auto parsed = cocoa::NSURL::URLWithString(cocoa::string(url));
    return parsed && cocoa::NSWorkspace::sharedWorkspace().openURL(parsed);
}

}  // namespace stagehopper::macos_port
