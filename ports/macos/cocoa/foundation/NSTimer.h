#pragma once

#include "ports/macos/cocoa/objc/Block.h"
#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSTimer. The thread of the run loop that it is added to.
class NSTimer : public Handle<NSTimer, NSObject> {
public:
    static constexpr FixedString className{"NSTimer"};
    using Handle::Handle;

    /// Runs once a run loop has it. `interval` is seconds.
    static NSTimer timerWithTimeInterval(double interval, bool repeats,
                                         const Block<void(NSTimer)>& block) {
        return sendToClass<"timerWithTimeInterval:repeats:block:",
                           NSTimer(double, BOOL, BlockPointer)>(interval, toBOOL(repeats),
                                                                block.get());
    }
    void invalidate() const { send<"invalidate", void()>(); }
};

}  // namespace stagehopper::cocoa
