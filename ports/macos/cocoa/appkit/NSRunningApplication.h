#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSRunningApplication. Any thread.
class NSRunningApplication : public Handle<NSRunningApplication, NSObject> {
public:
    static constexpr FixedString className{"NSRunningApplication"};
    using Handle::Handle;

    [[nodiscard]] int processIdentifier() const { return send<"processIdentifier", int()>(); }
    /// Nil for a program without a bundle.
    [[nodiscard]] NSString bundleIdentifier() const {
        return send<"bundleIdentifier", NSString()>();
    }
};

}  // namespace stagehopper::cocoa
