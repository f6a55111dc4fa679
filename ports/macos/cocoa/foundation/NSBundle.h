#pragma once

#include "ports/macos/cocoa/foundation/NSURL.h"

namespace stagehopper::cocoa {

/// NSBundle. Any thread.
class NSBundle : public Handle<NSBundle, NSObject> {
public:
    static constexpr FixedString className{"NSBundle"};
    using Handle::Handle;

    static NSBundle mainBundle() { return sendToClass<"mainBundle", NSBundle()>(); }
    /// Nil for a program without an Info.plist.
    [[nodiscard]] NSString bundleIdentifier() const {
        return send<"bundleIdentifier", NSString()>();
    }
    [[nodiscard]] NSURL resourceURL() const { return send<"resourceURL", NSURL()>(); }
};

}  // namespace stagehopper::cocoa
