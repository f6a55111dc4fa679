#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSUUID. Any thread.
class NSUUID : public Handle<NSUUID, NSObject> {
public:
    static constexpr FixedString className{"NSUUID"};
    using Handle::Handle;

    /// A new random UUID.
    static NSUUID UUID() { return sendToClass<"UUID", NSUUID()>(); }
    /// Upper case, with hyphens.
    [[nodiscard]] NSString UUIDString() const { return send<"UUIDString", NSString()>(); }
};

}  // namespace stagehopper::cocoa
