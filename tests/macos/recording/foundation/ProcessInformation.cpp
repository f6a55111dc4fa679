#include <cstdarg>
#include <vector>

#include "ports/macos/cocoa/foundation/NSLog.h"
#include "ports/macos/cocoa/graphics/CGWindowLevel.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSProcessInfo, NSBundle, the working directory, the log, and the level of windows that cover
// everything.

namespace stagehopper::recording {

namespace {

SystemInfo& systemInfo() {
    return World::current().systemInfo;
}

cocoa::id environment(Call& call) {
    const auto made = call.make("NSDictionary");
    for (const auto& [name, value] : systemInfo().environment) {
        stateOf<DictionaryState>(made).entries.emplace_back(makeString(name), makeString(value));
    }
    return made;
}

cocoa::id beginActivity(Call& call) {
    const auto activity = call.make("NSObject");
    systemInfo().activities.push_back(
        {call.argument<unsigned long>(0), textOf(call.argument<cocoa::id>(1)), Weak(activity)});
    return activity;
}

void endActivity(Call& call) {
    const auto ended = call.argument<cocoa::id>(0);
    const auto count = std::erase_if(systemInfo().activities,
                                     [&](const auto& each) { return each.token.get() == ended; });
    if (count == 0) noteProblem("an activity is ended that was never begun");
}

cocoa::id bundleIdentifier(Call& call) {
    const auto& identifier = systemInfo().bundleIdentifier;
    return identifier ? makeString(call, *identifier) : nullptr;
}

cocoa::id resourceUrl(Call& call) {
    const auto& directory = systemInfo().resourceDirectory;
    return directory ? call.made(makeUrl("file://" + *directory + "/", *directory)) : nullptr;
}

cocoa::id arguments(Call& call) {
    std::vector<Retained> texts;
    for (const auto& argument : systemInfo().arguments) texts.push_back(makeString(argument));
    return makeArray(call, texts);
}

}  // namespace

void defineProcessInformation() {
    MessagesOf("NSProcessInfo")
        .shared("processInfo")
        .on("processIdentifier", [](Call&) { return systemInfo().processIdentifier; })
        .on("systemUptime", [](Call&) { return systemInfo().secondsUp + queues::now(); })
        .on("arguments", arguments)
        .on("environment", environment)
        .on("beginActivityWithOptions:reason:", beginActivity)
        .on("endActivity:", endActivity);
    MessagesOf("NSBundle")
        .shared("mainBundle")
        .on("bundleIdentifier", bundleIdentifier)
        .on("resourceURL", resourceUrl);
    MessagesOf("NSFileManager").shared("defaultManager").on("currentDirectoryPath", [](Call& call) {
        return makeString(call, systemInfo().currentDirectory);
    });
}

}  // namespace stagehopper::recording

extern "C" void NSLog(stagehopper::cocoa::id format, ...) {
    using namespace stagehopper::recording;
    if (textOf(format) != "%@") {
        noteProblem("NSLog has a message for its format: " + describe(format));
        return;
    }
    std::va_list arguments;
    va_start(arguments, format);
    const auto message = va_arg(arguments, stagehopper::cocoa::id);
    va_end(arguments);
    recordFunction("NSLog", {describe(message)});
    World::current().systemLog.push_back(textOf(message));
}

namespace stagehopper::cocoa {

extern "C" CGWindowLevel CGShieldingWindowLevel() {
    return recording::World::shieldingLevel;
}

}  // namespace stagehopper::cocoa
