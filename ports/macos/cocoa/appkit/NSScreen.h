#pragma once

#include "ports/macos/cocoa/foundation/NSArray.h"

namespace stagehopper::cocoa {

/// NSScreen. Main thread only. The origin of frames is the lower left corner of the first screen.
class NSScreen : public Handle<NSScreen, NSObject> {
public:
    static constexpr FixedString className{"NSScreen"};
    using Handle::Handle;

    /// The screen with the key window; nil without one.
    static NSScreen mainScreen() { return sendToClass<"mainScreen", NSScreen()>(); }
    /// The screen with the menu bar comes first.
    static NSArray screens() { return sendToClass<"screens", NSArray()>(); }

    /// Includes the menu bar and the Dock.
    [[nodiscard]] CGRect frame() const { return send<"frame", CGRect()>(); }
};

}  // namespace stagehopper::cocoa
