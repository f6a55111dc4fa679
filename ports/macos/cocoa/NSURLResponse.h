#pragma once

#include "ports/macos/cocoa/Owned.h"

namespace stagehopper::cocoa {

/// NSURLResponse. Any thread.
class NSURLResponse : public Handle<NSURLResponse, NSObject> {
public:
    static constexpr FixedString className{"NSURLResponse"};
    using Handle::Handle;
};

/// NSHTTPURLResponse. Any thread.
class NSHTTPURLResponse : public Handle<NSHTTPURLResponse, NSURLResponse> {
public:
    static constexpr FixedString className{"NSHTTPURLResponse"};
    using Handle::Handle;

    [[nodiscard]] NSInteger statusCode() const { return send<"statusCode", NSInteger()>(); }
};

}  // namespace stagehopper::cocoa
