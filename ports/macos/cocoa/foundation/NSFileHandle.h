#pragma once

#include "ports/macos/cocoa/foundation/NSData.h"
#include "ports/macos/cocoa/foundation/NSError.h"

namespace stagehopper::cocoa {

/// NSFileHandle. Any thread.
class NSFileHandle : public Handle<NSFileHandle, NSObject> {
public:
    static constexpr FixedString className{"NSFileHandle"};
    using Handle::Handle;

    static NSFileHandle fileHandleWithNullDevice() {
        return sendToClass<"fileHandleWithNullDevice", NSFileHandle()>();
    }
    /// Blocks until the other side closes it; nil if reading fails. (The older message without an
    /// error raises an exception instead.)
    [[nodiscard]] NSData readDataToEndOfFileAndReturnError(NSError& error) const {
        id reported = nullptr;
        const auto data = send<"readDataToEndOfFileAndReturnError:", NSData(id*)>(&reported);
        error = NSError(reported);
        return data;
    }
};

}  // namespace stagehopper::cocoa
