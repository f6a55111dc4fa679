#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSNotification. Any thread.
class NSNotification : public Handle<NSNotification, NSObject> {
public:
    static constexpr FixedString className{"NSNotification"};
    using Handle::Handle;

    /// Whom it is about; nil when it is about nobody.
    [[nodiscard]] NSObject object() const { return send<"object", NSObject()>(); }
};

}  // namespace stagehopper::cocoa
