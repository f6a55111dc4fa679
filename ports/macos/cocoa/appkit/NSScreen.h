#pragma once

#include "ports/macos/cocoa/foundation/NSArray.h"

namespace stagehopper::cocoa {

/// NSScreen. Main thread only. The origin of frames is the lower left corner of the first screen.
class NSScreen : public Handle<NSScreen, NSObject> {
public:
    static constexpr FixedString className{"NSScreen"};
    using Handle::Handle;

    /// The one with the key window; nil when there is none.
    static NSScreen mainScreen() { return sendToClass<"mainScreen", NSScreen()>(); }
    /// The one with the menu bar first.
    static NSArray screens() { return sendToClass<"screens", NSArray()>(); }

    /// With the menu bar and the Dock.
    [[nodiscard]] CGRect frame() const { return send<"frame", CGRect()>(); }
};

}  // namespace stagehopper::cocoa
