#pragma once

#include "ports/macos/cocoa/foundation/NSURLRequest.h"
#include "ports/macos/cocoa/webkit/WKFrameInfo.h"

namespace stagehopper::cocoa {

enum WKNavigationActionPolicy : NSInteger {
    WKNavigationActionPolicyCancel = 0,
    WKNavigationActionPolicyAllow = 1
};

/// WKNavigationAction. Main thread only.
class WKNavigationAction : public Handle<WKNavigationAction, NSObject> {
public:
    static constexpr FixedString className{"WKNavigationAction"};
    using Handle::Handle;

    [[nodiscard]] NSURLRequest request() const { return send<"request", NSURLRequest()>(); }
    /// Nil for a new window.
    [[nodiscard]] WKFrameInfo targetFrame() const { return send<"targetFrame", WKFrameInfo()>(); }
};

}  // namespace stagehopper::cocoa
