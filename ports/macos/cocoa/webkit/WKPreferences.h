#pragma once

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

enum WKInactiveSchedulingPolicy : NSInteger { WKInactiveSchedulingPolicyNone = 2 };

/// WKPreferences. Main thread only.
class WKPreferences : public Handle<WKPreferences, NSObject> {
public:
    static constexpr FixedString className{"WKPreferences"};
    using Handle::Handle;

    /// macOS 14 and later.
    void setInactiveSchedulingPolicy(WKInactiveSchedulingPolicy policy) const {
        send<"setInactiveSchedulingPolicy:", void(NSInteger)>(policy);
    }
};

}  // namespace stagehopper::cocoa
