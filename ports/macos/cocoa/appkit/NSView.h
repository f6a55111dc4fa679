#pragma once

#include "ports/macos/cocoa/appkit/NSResponder.h"

namespace stagehopper::cocoa {

/// NSView. Main thread only.
class NSView : public Handle<NSView, NSResponder> {
public:
    static constexpr FixedString className{"NSView"};
    using Handle::Handle;

    void setFrame(CGRect frame) const { send<"setFrame:", void(CGRect)>(frame); }
};

}  // namespace stagehopper::cocoa
