#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSColor. Any thread.
class NSColor : public Handle<NSColor, NSObject> {
public:
    static constexpr FixedString className{"NSColor"};
    using Handle::Handle;

    static NSColor clearColor() { return sendToClass<"clearColor", NSColor()>(); }
};

}  // namespace stagehopper::cocoa
