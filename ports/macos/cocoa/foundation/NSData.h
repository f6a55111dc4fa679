#pragma once

#include <string>
#include <string_view>

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSData. Any thread.
class NSData : public Handle<NSData, NSObject> {
public:
    static constexpr FixedString className{"NSData"};
    using Handle::Handle;

    /// Has a copy of the bytes.
    static NSData dataWithBytes(std::string_view bytes) {
        return sendToClass<"dataWithBytes:length:", NSData(const void*, NSUInteger)>(bytes.data(),
                                                                                     bytes.size());
    }

    [[nodiscard]] const void* bytes() const { return send<"bytes", const void*()>(); }
    [[nodiscard]] NSUInteger length() const { return send<"length", NSUInteger()>(); }
};

/// A copy of the bytes; empty for nil.
[[nodiscard]] inline std::string bytes(NSData data) {
    const auto length = data.length();
    if (length == 0) return {};
    return {static_cast<const char*>(data.bytes()), length};
}

}  // namespace stagehopper::cocoa
