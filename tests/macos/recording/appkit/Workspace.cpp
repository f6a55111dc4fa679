#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/World.h"

// NSWorkspace and NSRunningApplication.

namespace stagehopper::recording {

namespace {

cocoa::id makeApplication(Call& call, const platform::RunningApplication& application) {
    const auto made = call.make("NSRunningApplication");
    const auto& identifier = application.bundleIdentifier;
    setProperty(made, "processIdentifier", application.processIdentifier);
    setProperty(made, "bundleIdentifier", identifier ? makeString(*identifier).get() : nullptr);
    return made;
}

cocoa::id runningApplications(Call& call) {
    std::vector<Retained> running;
    for (const auto& application : World::current().programs.runningApplications()) {
        running.emplace_back(makeApplication(call, application));
    }
    return makeArray(call, running);
}

cocoa::id frontmostApplication(Call& call) {
    const auto front = World::current().programs.frontmostApplication();
    return front ? makeApplication(call, *front) : nullptr;
}

bool openUrl(Call& call) {
    return World::current().programs.open(addressOf(call.argument<cocoa::id>(0)));
}

}  // namespace

void defineWorkspace() {
    MessagesOf("NSWorkspace")
        .shared("sharedWorkspace")
        .on("runningApplications", runningApplications)
        .on("frontmostApplication", frontmostApplication)
        .on("openURL:", openUrl);
}

}  // namespace stagehopper::recording
