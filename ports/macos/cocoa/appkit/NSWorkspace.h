#pragma once

#include "ports/macos/cocoa/appkit/NSRunningApplication.h"
#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSURL.h"

namespace stagehopper::cocoa {

/// NSWorkspace. Any thread may ask; its data is updated by the main run loop.
class NSWorkspace : public Handle<NSWorkspace, NSObject> {
public:
    static constexpr FixedString className{"NSWorkspace"};
    using Handle::Handle;

    static NSWorkspace sharedWorkspace() { return sendToClass<"sharedWorkspace", NSWorkspace()>(); }

    /// Elements: NSRunningApplication.
    [[nodiscard]] NSArray runningApplications() const {
        return send<"runningApplications", NSArray()>();
    }
    /// The program that gets the key presses; nil if there is none.
    [[nodiscard]] NSRunningApplication frontmostApplication() const {
        return send<"frontmostApplication", NSRunningApplication()>();
    }
    [[nodiscard]] bool openURL(NSURL url) const {
        return fromBOOL(send<"openURL:", BOOL(NSURL)>(url));
    }
};

}  // namespace stagehopper::cocoa
