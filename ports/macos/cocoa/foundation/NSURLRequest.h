#pragma once

#include "ports/macos/cocoa/foundation/NSURL.h"

namespace stagehopper::cocoa {

/// NSURLRequest. Any thread.
class NSURLRequest : public Handle<NSURLRequest, NSObject> {
public:
    static constexpr FixedString className{"NSURLRequest"};
    using Handle::Handle;

    [[nodiscard]] NSURL url() const { return send<"URL", NSURL()>(); }
};

}  // namespace stagehopper::cocoa
