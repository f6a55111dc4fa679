#pragma once

#include <string>

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSData. Any thread.
class NSData : public Handle<NSData, NSObject> {
public:
    static constexpr FixedString className{"NSData"};
    using Handle::Handle;

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
