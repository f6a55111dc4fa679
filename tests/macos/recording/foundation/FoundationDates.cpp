#include <cstdio>
#include <ctime>
#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

namespace stagehopper::recording {

namespace {

constexpr unsigned long noStyle = 0;
constexpr unsigned long mediumStyle = 2;

cocoa::id date(Call& call, double seconds) {
    const auto made = call.make("NSDate");
    stateOf<DateState>(made).seconds = seconds;
    return made;
}

Value now(Call& call) {
    return date(call, World::current().systemInfo.startOfTime + queues::now());
}

Value dateWithTimeIntervalSince1970(Call& call) {
    return date(call, call.argument<double>(0));
}

/// "15:04:05": what a locale with a 24-hour clock writes; the local time is UTC.
Value localizedString(Call& call) {
    if (call.argument<unsigned long>(1) != noStyle ||
        call.argument<unsigned long>(2) != mediumStyle) {
        noteProblem("a date is written in a style other than that of hours, minutes and seconds");
    }
    const auto seconds =
        static_cast<std::time_t>(stateOf<DateState>(call.argument<cocoa::id>(0)).seconds);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    char text[16];
    std::strftime(text, sizeof text, "%H:%M:%S", &parts);
    return makeString(call, text);
}

/// A well-formed random UUID but for the randomness: of its number, so that tests know it.
Value uuidString(Call& call) {
    const auto number = call.state<std::uint32_t>();
    char text[37];
    std::snprintf(text, sizeof text, "%08X-BEEF-4ABC-8DEF-C0FFEE%06X", number, number & 0xFFFFFFU);
    return makeString(call, text);
}

Value uuid(Call& call) {
    const auto made = call.make("NSUUID");
    stateOf<std::uint32_t>(made) = ++World::current().systemInfo.uuids;
    return made;
}

}  // namespace

void defineDates() {
    define("NSDate", MessageKind::classLevel, "date", now);
    define("NSDate", MessageKind::classLevel,
           "dateWithTimeIntervalSince1970:", dateWithTimeIntervalSince1970);
    define("NSDate", MessageKind::instance, "timeIntervalSince1970",
           [](Call& call) -> Value { return call.state<DateState>().seconds; });
    keepOutOfJournal("NSDate");
    define("NSDateFormatter", MessageKind::classLevel,
           "localizedStringFromDate:dateStyle:timeStyle:", localizedString);
    keepOutOfJournal("NSDateFormatter");
    define("NSUUID", MessageKind::classLevel, "UUID", uuid);
    define("NSUUID", MessageKind::instance, "UUIDString", uuidString);
}

}  // namespace stagehopper::recording
