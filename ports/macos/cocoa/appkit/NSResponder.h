#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSResponder. Main thread only.
class NSResponder : public Handle<NSResponder, NSObject> {
public:
    static constexpr FixedString className{"NSResponder"};
    using Handle::Handle;
};

}  // namespace stagehopper::cocoa
