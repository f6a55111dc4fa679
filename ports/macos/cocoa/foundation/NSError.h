#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSError. Any thread.
class NSError : public Handle<NSError, NSObject> {
public:
    static constexpr FixedString className{"NSError"};
    using Handle::Handle;

    /// In the user's language.
    [[nodiscard]] NSString localizedDescription() const {
        return send<"localizedDescription", NSString()>();
    }
};

}  // namespace stagehopper::cocoa
