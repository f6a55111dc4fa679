#include <utility>
#include <vector>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSProcessInfo, NSBundle, and the working directory.

namespace stagehopper::recording {

namespace {

SystemInfo& systemInfo() {
    return World::current().systemInfo;
}

Value environment(Call& call) {
    const auto made = call.make("NSDictionary");
    for (const auto& [name, value] : systemInfo().environment) {
        stateOf<DictionaryState>(made).entries.emplace_back(makeString(name), makeString(value));
    }
    return made;
}

Value beginActivity(Call& call) {
    const auto activity = call.make("NSObject");
    systemInfo().activities.push_back(
        {call.argument<unsigned long>(0), textOf(call.argument<cocoa::id>(1)), Weak(activity)});
    return activity;
}

Value endActivity(Call& call) {
    const auto ended = call.argument<cocoa::id>(0);
    const auto count = std::erase_if(systemInfo().activities,
                                     [&](const auto& each) { return each.token.get() == ended; });
    if (count == 0) noteProblem("an activity is ended that was never begun");
    return {};
}

Value bundleIdentifier(Call& call) {
    const auto& identifier = systemInfo().bundleIdentifier;
    return identifier ? makeString(call, *identifier) : cocoa::id{};
}

Value resourceUrl(Call& call) {
    const auto& directory = systemInfo().resourceDirectory;
    if (!directory) return cocoa::id{};
    const auto made = makeUrl(call, "file://" + *directory + "/");
    stateOf<UrlState>(made).path = *directory;
    return made;
}

}  // namespace

void defineProcessInformation() {
    defineShared("NSProcessInfo", "processInfo");
    define("NSProcessInfo", MessageKind::instance, "processIdentifier",
           [](Call&) -> Value { return systemInfo().processIdentifier; });
    define("NSProcessInfo", MessageKind::instance, "systemUptime",
           [](Call&) -> Value { return systemInfo().secondsUp + queues::now(); });
    define("NSProcessInfo", MessageKind::instance, "arguments",
           [](Call& call) -> Value { return makeTexts(call, systemInfo().arguments); });
    define("NSProcessInfo", MessageKind::instance, "environment", environment);
    define("NSProcessInfo", MessageKind::instance,
           "beginActivityWithOptions:reason:", beginActivity);
    define("NSProcessInfo", MessageKind::instance, "endActivity:", endActivity);

    defineShared("NSBundle", "mainBundle");
    define("NSBundle", MessageKind::instance, "bundleIdentifier", bundleIdentifier);
    define("NSBundle", MessageKind::instance, "resourceURL", resourceUrl);

    defineShared("NSFileManager", "defaultManager");
    define("NSFileManager", MessageKind::instance, "currentDirectoryPath",
           [](Call& call) -> Value { return makeString(call, systemInfo().currentDirectory); });
}

}  // namespace stagehopper::recording
