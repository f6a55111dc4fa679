#pragma once

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

/// WKFrameInfo. Main thread only.
class WKFrameInfo : public Handle<WKFrameInfo, NSObject> {
public:
    static constexpr FixedString className{"WKFrameInfo"};
    using Handle::Handle;

    [[nodiscard]] bool isMainFrame() const { return fromBOOL(send<"isMainFrame", BOOL()>()); }
};

}  // namespace stagehopper::cocoa
