#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSURL. Any thread.
class NSURL : public Handle<NSURL, NSObject> {
public:
    static constexpr FixedString className{"NSURL"};
    using Handle::Handle;

    /// Nil when the text is no URL. From macOS 14 on it escapes what older systems refuse.
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
