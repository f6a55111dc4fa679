#include "ports/macos/system/MacClock.h"

#include <unistd.h>

#include <algorithm>

#include "ports/macos/system/Dates.h"

namespace stagehopper::macos_port {

platform::Date MacClock::now() {
    return dateOf(cocoa::NSDate::date());
}

void MacClock::sleep(std::chrono::microseconds duration) {
    // The system does not promise to accept a full second.
    constexpr std::chrono::microseconds longest(999'999);
    for (auto left = duration; left.count() > 0;) {
        const auto piece = std::min(left, longest);
        ::usleep(static_cast<useconds_t>(piece.count()));
        left -= piece;
    }
}

}  // namespace stagehopper::macos_port
