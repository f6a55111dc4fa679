#pragma once

#include "platform/Clock.h"
#include "ports/macos/cocoa/foundation/NSDate.h"

namespace stagehopper::macos_port {

// Both count seconds since 1970.

[[nodiscard]] inline platform::Date dateOf(cocoa::NSDate date) {
    const platform::Duration sinceEpoch(date.timeIntervalSince1970());
    return platform::Date(std::chrono::round<platform::Date::duration>(sinceEpoch));
}

[[nodiscard]] inline cocoa::NSDate dateFor(platform::Date date) {
    const platform::Duration sinceEpoch = date.time_since_epoch();
    return cocoa::NSDate::dateWithTimeIntervalSince1970(sinceEpoch.count());
}

}  // namespace stagehopper::macos_port
