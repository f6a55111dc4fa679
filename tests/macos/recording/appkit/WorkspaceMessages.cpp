#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/system/World.h"

// NSWorkspace and NSRunningApplication.

namespace stagehopper::recording {

namespace {

OtherPrograms& programs() {
    return World::current().programs;
}

Value runningApplications(Call& call) {
    std::vector<Retained> running;
    for (const auto& program : programs().all()) {
        running.push_back(makeObject("NSRunningApplication"));
        stateOf<platform::RunningApplication>(running.back().get()) = program->application();
    }
    return makeArray(call, running);
}

Value frontmostApplication(Call& call) {
    const auto front = programs().front ? programs().find(*programs().front) : nullptr;
    if (!front) return cocoa::id{};
    const auto application = call.make("NSRunningApplication");
    stateOf<platform::RunningApplication>(application) = front->application();
    return application;
}

Value openUrl(Call& call) {
    programs().opened.push_back(addressOf(call.argument<cocoa::id>(0)));
    return programs().opensAddresses;
}

Value bundleIdentifier(Call& call) {
    const auto& identifier = call.state<platform::RunningApplication>().bundleIdentifier;
    return identifier ? makeString(call, *identifier) : cocoa::id{};
}

Value processIdentifier(Call& call) {
    return call.state<platform::RunningApplication>().processIdentifier;
}

}  // namespace

void defineWorkspace() {
    defineShared("NSWorkspace", "sharedWorkspace");
    define("NSWorkspace", MessageKind::instance, "runningApplications", runningApplications);
    define("NSWorkspace", MessageKind::instance, "frontmostApplication", frontmostApplication);
    define("NSWorkspace", MessageKind::instance, "openURL:", openUrl);
    define("NSRunningApplication", MessageKind::instance, "processIdentifier", processIdentifier);
    define("NSRunningApplication", MessageKind::instance, "bundleIdentifier", bundleIdentifier);
}

}  // namespace stagehopper::recording
