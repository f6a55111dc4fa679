#pragma once

#include "ports/macos/cocoa/foundation/NSURL.h"

namespace stagehopper::cocoa {

/// NSURLResponse. Any thread.
class NSURLResponse : public Handle<NSURLResponse, NSObject> {
public:
    static constexpr FixedString className{"NSURLResponse"};
    using Handle::Handle;

    /// The URL of this response; after a redirect it differs from the requested one.
    [[nodiscard]] NSURL URL() const { return send<"URL", NSURL()>(); }
};

/// NSHTTPURLResponse. Any thread.
class NSHTTPURLResponse : public Handle<NSHTTPURLResponse, NSURLResponse> {
public:
    static constexpr FixedString className{"NSHTTPURLResponse"};
    using Handle::Handle;

    [[nodiscard]] NSInteger statusCode() const { return send<"statusCode", NSInteger()>(); }
};

}  // namespace stagehopper::cocoa
