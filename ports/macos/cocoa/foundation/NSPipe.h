#pragma once

#include "ports/macos/cocoa/foundation/NSFileHandle.h"

namespace stagehopper::cocoa {

/// NSPipe. Any thread.
class NSPipe : public Handle<NSPipe, NSObject> {
public:
    static constexpr FixedString className{"NSPipe"};
    using Handle::Handle;

    static NSPipe pipe() { return sendToClass<"pipe", NSPipe()>(); }
    [[nodiscard]] NSFileHandle fileHandleForReading() const {
        return send<"fileHandleForReading", NSFileHandle()>();
    }
};

}  // namespace stagehopper::cocoa
