#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"
#include "ports/macos/cocoa/webkit/WKFrameInfo.h"

namespace stagehopper::cocoa {

/// WKScriptMessage. Main thread only.
class WKScriptMessage : public Handle<WKScriptMessage, NSObject> {
public:
    static constexpr FixedString className{"WKScriptMessage"};
    using Handle::Handle;

    /// The posted value: an NSString for a string, else an NSNumber, NSDate, NSArray, NSDictionary
    /// or NSNull.
    [[nodiscard]] NSObject body() const { return send<"body", NSObject()>(); }
    /// The frame that posted it.
    [[nodiscard]] WKFrameInfo frameInfo() const { return send<"frameInfo", WKFrameInfo()>(); }
    /// The name of the handler that it was posted to.
    [[nodiscard]] NSString name() const { return send<"name", NSString()>(); }
};

}  // namespace stagehopper::cocoa
