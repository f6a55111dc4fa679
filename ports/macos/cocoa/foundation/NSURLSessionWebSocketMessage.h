#pragma once

#include "ports/macos/cocoa/foundation/NSData.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

enum NSURLSessionWebSocketMessageType : NSInteger {
    NSURLSessionWebSocketMessageTypeData = 0,
    NSURLSessionWebSocketMessageTypeString = 1,
};

/// NSURLSessionWebSocketMessage. Any thread.
class NSURLSessionWebSocketMessage : public Handle<NSURLSessionWebSocketMessage, NSObject> {
public:
    static constexpr FixedString className{"NSURLSessionWebSocketMessage"};
    using Handle::Handle;

    /// An NSURLSessionWebSocketMessageType; later systems may have more.
    [[nodiscard]] NSInteger type() const { return send<"type", NSInteger()>(); }
    /// Nil for a message of the other type.
    [[nodiscard]] NSData data() const { return send<"data", NSData()>(); }
    /// Nil for a message of the other type.
    [[nodiscard]] NSString string() const { return send<"string", NSString()>(); }
};

}  // namespace stagehopper::cocoa
