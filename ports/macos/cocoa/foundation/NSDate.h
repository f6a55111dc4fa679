#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSDate. Any thread.
class NSDate : public Handle<NSDate, NSObject> {
public:
    static constexpr FixedString className{"NSDate"};
    using Handle::Handle;

    /// Now.
    static NSDate date() { return sendToClass<"date", NSDate()>(); }
    static NSDate dateWithTimeIntervalSince1970(double seconds) {
        return sendToClass<"dateWithTimeIntervalSince1970:", NSDate(double)>(seconds);
    }
    /// Seconds.
    [[nodiscard]] double timeIntervalSince1970() const {
        return send<"timeIntervalSince1970", double()>();
    }
};

}  // namespace stagehopper::cocoa
