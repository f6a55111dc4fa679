#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"
#include "ports/macos/cocoa/foundation/NSTimer.h"

extern "C" {
extern objc_object* const NSRunLoopCommonModes;
}

namespace stagehopper::cocoa {

/// NSRunLoop. Only on its own thread.
class NSRunLoop : public Handle<NSRunLoop, NSObject> {
public:
    static constexpr FixedString className{"NSRunLoop"};
    using Handle::Handle;

    /// Every mode in which a program waits for its user, including open menus.
    static NSString commonModes() { return NSString(NSRunLoopCommonModes); }
    static NSRunLoop mainRunLoop() { return sendToClass<"mainRunLoop", NSRunLoop()>(); }
    void addTimer(NSTimer timer, NSString mode) const {
        send<"addTimer:forMode:", void(NSTimer, NSString)>(timer, mode);
    }
};

}  // namespace stagehopper::cocoa
