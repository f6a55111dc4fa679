#include <cstdio>
#include <ctime>
#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSData, NSError, NSNumber, NSDate, NSDateFormatter and NSUUID.

namespace stagehopper::recording {

namespace {

constexpr unsigned long noStyle = 0;
constexpr unsigned long mediumStyle = 2;

cocoa::id numberWithBool(Call& call) {
    return call.made(makeTruth(call.argument<cocoa::BOOL>(0)));
}

std::string describeNumber(cocoa::id object) {
    const auto& state = stateOf<NumberState>(object);
    if (state.truth) return state.value != 0 ? "@YES" : "@NO";
    char text[32];
    std::snprintf(text, sizeof text, "@%g", state.value);
    return text;
}

cocoa::id date(Call& call, double seconds) {
    const auto made = call.make("NSDate");
    setProperty(made, "timeIntervalSince1970", seconds);
    return made;
}

/// "15:04:05": what a locale with a 24-hour clock writes; the local time is UTC.
cocoa::id localizedString(Call& call) {
    if (call.argument<unsigned long>(1) != noStyle ||
        call.argument<unsigned long>(2) != mediumStyle) {
        noteProblem("a date is written in a style other than that of hours, minutes and seconds");
    }
    const auto seconds = static_cast<std::time_t>(
        property(call.argument<cocoa::id>(0), "timeIntervalSince1970").as<double>());
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char text[16];
    std::strftime(text, sizeof text, "%H:%M:%S", &parts);
    return makeString(call, text);
}

/// A well-formed random UUID but for the randomness: of its number, so that tests know it.
cocoa::id uuid(Call& call) {
    const auto number = ++World::current().systemInfo.uuids;
    char text[37];
    std::snprintf(text, sizeof text, "%08X-BEEF-4ABC-8DEF-C0FFEE%06X", number, number & 0xFFFFFFU);
    const auto made = call.make("NSUUID");
    setProperty(made, "UUIDString", makeString(text).get());
    return made;
}

}  // namespace

void defineValues() {
    MessagesOf("NSData")
        .on("bytes",
            [](Call& call) {
                return static_cast<const void*>(call.state<DataState>().bytes.data());
            })
        .on("length", [](Call& call) { return call.state<DataState>().bytes.size(); })
        .notInJournal();
    MessagesOf("NSError").notInJournal();
    MessagesOf("NSNumber")
        .onClass("numberWithBool:", numberWithBool)
        .describedBy(describeNumber)
        .notInJournal();
    MessagesOf("NSDate")
        .onClass("date",
                 [](Call& call) {
                     return date(call, World::current().systemInfo.startOfTime + queues::now());
                 })
        .onClass("dateWithTimeIntervalSince1970:",
                 [](Call& call) { return date(call, call.argument<double>(0)); })
        .notInJournal();
    MessagesOf("NSDateFormatter")
        .onClass("localizedStringFromDate:dateStyle:timeStyle:", localizedString)
        .notInJournal();
    MessagesOf("NSUUID").onClass("UUID", uuid);
}

}  // namespace stagehopper::recording
