#pragma once

#include "ports/macos/cocoa/appkit/NSColor.h"
#include "ports/macos/cocoa/appkit/NSView.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

enum NSBackingStoreType : NSUInteger { NSBackingStoreBuffered = 2 };
enum NSWindowAnimationBehavior : NSInteger { NSWindowAnimationBehaviorNone = 2 };
/// Bits.
enum NSWindowStyleMask : NSUInteger {
    NSWindowStyleMaskTitled = 1,
    NSWindowStyleMaskClosable = 2,
    NSWindowStyleMaskMiniaturizable = 4,
    NSWindowStyleMaskResizable = 8,
    NSWindowStyleMaskNonactivatingPanel = 128,
};
/// Bits.
enum NSWindowCollectionBehavior : NSUInteger {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 256,
};

/// NSWindow. Main thread only.
class NSWindow : public Handle<NSWindow, NSResponder> {
public:
    static constexpr FixedString className{"NSWindow"};
    using Handle::Handle;

    /// The window releases itself when closed unless `setReleasedWhenClosed(false)` is sent.
    static Owned<NSWindow> make(CGRect contentRect, NSWindowStyleMask styleMask, bool defer) {
        return Owned<NSWindow>::adopt(allocate().initWithContentRect(
            contentRect, styleMask, NSBackingStoreBuffered, toBOOL(defer)));
    }

    void setReleasedWhenClosed(bool released) const {
        send<"setReleasedWhenClosed:", void(BOOL)>(toBOOL(released));
    }
    /// Whether the system reopens it at the next start.
    void setRestorable(bool restorable) const {
        send<"setRestorable:", void(BOOL)>(toBOOL(restorable));
    }
    void setTitle(NSString title) const { send<"setTitle:", void(NSString)>(title); }
    /// Of the frame, including the title bar.
    void setMinSize(CGSize size) const { send<"setMinSize:", void(CGSize)>(size); }
    void setContentView(NSView view) const { send<"setContentView:", void(NSView)>(view); }
    void center() const { send<"center", void()>(); }
    /// Not retained.
    void setDelegate(NSObject delegate) const { send<"setDelegate:", void(NSObject)>(delegate); }
    void makeKeyAndOrderFront(NSObject sender) const {
        send<"makeKeyAndOrderFront:", void(NSObject)>(sender);
    }
    void orderFrontRegardless() const { send<"orderFrontRegardless", void()>(); }
    void orderOut(NSObject sender) const { send<"orderOut:", void(NSObject)>(sender); }
    /// Does not ask the delegate, which is only notified.
    void close() const { send<"close", void()>(); }

    void setBackgroundColor(NSColor color) const {
        send<"setBackgroundColor:", void(NSColor)>(color);
    }
    void setOpaque(bool opaque) const { send<"setOpaque:", void(BOOL)>(toBOOL(opaque)); }
    void setHasShadow(bool hasShadow) const {
        send<"setHasShadow:", void(BOOL)>(toBOOL(hasShadow));
    }
    void setHidesOnDeactivate(bool hides) const {
        send<"setHidesOnDeactivate:", void(BOOL)>(toBOOL(hides));
    }
    void setLevel(NSInteger level) const { send<"setLevel:", void(NSInteger)>(level); }
    void setCollectionBehavior(NSWindowCollectionBehavior behavior) const {
        send<"setCollectionBehavior:", void(NSUInteger)>(behavior);
    }
    void setAnimationBehavior(NSWindowAnimationBehavior behavior) const {
        send<"setAnimationBehavior:", void(NSInteger)>(behavior);
    }
    void setIgnoresMouseEvents(bool ignores) const {
        send<"setIgnoresMouseEvents:", void(BOOL)>(toBOOL(ignores));
    }
    void setFrame(CGRect frame, bool display) const {
        send<"setFrame:display:", void(CGRect, BOOL)>(frame, toBOOL(display));
    }

private:
    [[nodiscard]] NSWindow initWithContentRect(CGRect contentRect, NSWindowStyleMask styleMask,
                                               NSBackingStoreType backing, BOOL defer) const {
        return send<"initWithContentRect:styleMask:backing:defer:",
                    NSWindow(CGRect, NSUInteger, NSUInteger, BOOL)>(contentRect, styleMask, backing,
                                                                    defer);
    }
};

}  // namespace stagehopper::cocoa
