#pragma once

#include "ports/macos/cocoa/foundation/NSData.h"

namespace stagehopper::cocoa {

/// NSJSONSerialization. Any thread.
class NSJSONSerialization : public Handle<NSJSONSerialization, NSObject> {
public:
    static constexpr FixedString className{"NSJSONSerialization"};
    using Handle::Handle;

    /// With the default options: an NSArray or an NSDictionary, with NSString, NSNumber and NSNull
    /// in it. Nil if the data is malformed; raises an exception if it is nil.
    static NSObject JSONObjectWithData(NSData data) {
        constexpr NSUInteger defaultOptions = 0;
        return sendToClass<"JSONObjectWithData:options:error:", NSObject(NSData, NSUInteger, id*)>(
            data, defaultOptions, nullptr);
    }
};

}  // namespace stagehopper::cocoa
