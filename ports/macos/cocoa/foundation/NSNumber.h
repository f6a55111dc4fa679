#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSNumber. Any thread.
class NSNumber : public Handle<NSNumber, NSObject> {
public:
    static constexpr FixedString className{"NSNumber"};
    using Handle::Handle;

    static NSNumber numberWithBool(bool value) {
        return sendToClass<"numberWithBool:", NSNumber(BOOL)>(toBOOL(value));
    }
};

}  // namespace stagehopper::cocoa
