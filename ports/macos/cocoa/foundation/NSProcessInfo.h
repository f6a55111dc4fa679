#pragma once

#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

enum NSActivityOptions : NSUInteger {
    NSActivityUserInitiatedAllowingIdleSystemSleep = 0xEFFFFF,
    NSActivityUserInitiated = 0xFFFFFF,
};

/// NSProcessInfo. Any thread.
class NSProcessInfo : public Handle<NSProcessInfo, NSObject> {
public:
    static constexpr FixedString className{"NSProcessInfo"};
    using Handle::Handle;

    static NSProcessInfo processInfo() { return sendToClass<"processInfo", NSProcessInfo()>(); }

    /// Elements: NSString.
    [[nodiscard]] NSArray arguments() const { return send<"arguments", NSArray()>(); }
    /// Elements: NSString.
    [[nodiscard]] NSDictionary environment() const { return send<"environment", NSDictionary()>(); }
    [[nodiscard]] int processIdentifier() const { return send<"processIdentifier", int()>(); }
    /// Seconds; stops while the machine sleeps, and never goes backwards.
    [[nodiscard]] double systemUptime() const { return send<"systemUptime", double()>(); }

    /// Keeps the system from slowing this process down until `endActivity`. The caller keeps the
    /// returned activity.
    [[nodiscard]] NSObject beginActivityWithOptions(NSActivityOptions options,
                                                    NSString reason) const {
        return send<"beginActivityWithOptions:reason:", NSObject(NSUInteger, NSString)>(options,
                                                                                        reason);
    }
    void endActivity(NSObject activity) const { send<"endActivity:", void(NSObject)>(activity); }
};

}  // namespace stagehopper::cocoa
