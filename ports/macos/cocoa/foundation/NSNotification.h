#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSNotification. Any thread.
class NSNotification : public Handle<NSNotification, NSObject> {
public:
    static constexpr FixedString className{"NSNotification"};
    using Handle::Handle;

    /// The object that the notification is about; nil if there is none.
    [[nodiscard]] NSObject object() const { return send<"object", NSObject()>(); }
};

}  // namespace stagehopper::cocoa
