#pragma once

#include "ports/macos/cocoa/objc/Block.h"
#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSTimer. Only on the thread of its run loop.
class NSTimer : public Handle<NSTimer, NSObject> {
public:
    static constexpr FixedString className{"NSTimer"};
    using Handle::Handle;

    /// Starts when it is added to a run loop. `interval` is in seconds.
    static NSTimer timerWithTimeInterval(double interval, bool repeats,
                                         const Block<void(NSTimer)>& block) {
        return sendToClass<"timerWithTimeInterval:repeats:block:",
                           NSTimer(double, BOOL, BlockPointer)>(interval, toBOOL(repeats),
                                                                block.get());
    }
    void invalidate() const { send<"invalidate", void()>(); }
};

}  // namespace stagehopper::cocoa
