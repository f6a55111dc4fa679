#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSURL. Any thread.
class NSURL : public Handle<NSURL, NSObject> {
public:
    static constexpr FixedString className{"NSURL"};
    using Handle::Handle;

    /// Nil if the text is an invalid URL. macOS 14 and later escape characters that older systems
    /// refuse.
    static NSURL URLWithString(NSString text) {
        return sendToClass<"URLWithString:", NSURL(NSString)>(text);
    }
    static NSURL fileURLWithPath(NSString path) {
        return sendToClass<"fileURLWithPath:", NSURL(NSString)>(path);
    }
    static NSURL fileURLWithPath(NSString path, bool isDirectory) {
        return sendToClass<"fileURLWithPath:isDirectory:", NSURL(NSString, BOOL)>(
            path, toBOOL(isDirectory));
    }

    [[nodiscard]] NSString absoluteString() const { return send<"absoluteString", NSString()>(); }
    [[nodiscard]] NSString path() const { return send<"path", NSString()>(); }
};

}  // namespace stagehopper::cocoa
