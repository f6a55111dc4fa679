#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSNumber. Any thread.
class NSNumber : public Handle<NSNumber, NSObject> {
public:
    static constexpr FixedString className{"NSNumber"};
    using Handle::Handle;

    static NSNumber numberWithBool(bool value) {
        return sendToClass<"numberWithBool:", NSNumber(BOOL)>(toBOOL(value));
    }

    [[nodiscard]] double doubleValue() const { return send<"doubleValue", double()>(); }
    /// The same in every language. An integer has all its digits.
    [[nodiscard]] NSString stringValue() const { return send<"stringValue", NSString()>(); }
};

}  // namespace stagehopper::cocoa
