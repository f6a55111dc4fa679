#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSFileManager. Any thread for the default manager.
class NSFileManager : public Handle<NSFileManager, NSObject> {
public:
    static constexpr FixedString className{"NSFileManager"};
    using Handle::Handle;

    static NSFileManager defaultManager() {
        return sendToClass<"defaultManager", NSFileManager()>();
    }
    [[nodiscard]] NSString currentDirectoryPath() const {
        return send<"currentDirectoryPath", NSString()>();
    }
};

}  // namespace stagehopper::cocoa
