#pragma once

#include "ports/macos/cocoa/appkit/NSWindow.h"

namespace stagehopper::cocoa {

/// NSPanel. Main thread only.
class NSPanel : public Handle<NSPanel, NSWindow> {
public:
    static constexpr FixedString className{"NSPanel"};
    using Handle::Handle;

    static Owned<NSPanel> make(CGRect contentRect, NSWindowStyleMask styleMask, bool defer) {
        return Owned<NSPanel>::adopt(allocate().initWithContentRect(
            contentRect, styleMask, NSBackingStoreBuffered, toBOOL(defer)));
    }

private:
    [[nodiscard]] NSPanel initWithContentRect(CGRect contentRect, NSWindowStyleMask styleMask,
                                              NSBackingStoreType backing, BOOL defer) const {
        return send<"initWithContentRect:styleMask:backing:defer:",
                    NSPanel(CGRect, NSUInteger, NSUInteger, BOOL)>(contentRect, styleMask, backing,
                                                                   defer);
    }
};

}  // namespace stagehopper::cocoa
