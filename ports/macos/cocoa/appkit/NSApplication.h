#pragma once

#include "ports/macos/cocoa/appkit/NSMenu.h"
#include "ports/macos/cocoa/appkit/NSResponder.h"

extern "C" {
extern objc_object* const NSApplicationDidChangeScreenParametersNotification;
}

namespace stagehopper::cocoa {

enum NSApplicationActivationPolicy : NSInteger { NSApplicationActivationPolicyRegular = 0 };

/// NSApplication. Main thread only.
class NSApplication : public Handle<NSApplication, NSResponder> {
public:
    static constexpr FixedString className{"NSApplication"};
    using Handle::Handle;

    static NSString didChangeScreenParametersNotification() {
        return NSString(NSApplicationDidChangeScreenParametersNotification);
    }

    /// The first call creates the application object and connects it to the window server.
    static NSApplication sharedApplication() {
        return sendToClass<"sharedApplication", NSApplication()>();
    }

    /// Not retained.
    void setDelegate(NSObject delegate) const { send<"setDelegate:", void(NSObject)>(delegate); }
    bool setActivationPolicy(NSApplicationActivationPolicy policy) const {
        return fromBOOL(send<"setActivationPolicy:", BOOL(NSInteger)>(policy));
    }
    void setMainMenu(NSMenu menu) const { send<"setMainMenu:", void(NSMenu)>(menu); }
    /// From macOS 14 on.
    void activate() const { send<"activate", void()>(); }
    /// Deprecated since macOS 14.
    void activateIgnoringOtherApps(bool ignore) const {
        send<"activateIgnoringOtherApps:", void(BOOL)>(toBOOL(ignore));
    }
    /// Does not return once the program's end is decided.
    void terminate(NSObject sender) const { send<"terminate:", void(NSObject)>(sender); }
    void run() const { send<"run", void()>(); }
};

}  // namespace stagehopper::cocoa
