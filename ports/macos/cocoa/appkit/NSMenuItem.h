#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

class NSMenu;

/// NSMenuItem. Main thread only.
class NSMenuItem : public Handle<NSMenuItem, NSObject> {
public:
    static constexpr FixedString className{"NSMenuItem"};
    using Handle::Handle;

    /// `action` may be null. Without a target the action goes to the first responder. The modifier
    /// of the key equivalent is Command unless another is set.
    static Owned<NSMenuItem> make(NSString title, SEL action, NSString keyEquivalent) {
        return Owned<NSMenuItem>::adopt(
            allocate().initWithTitleActionKeyEquivalent(title, action, keyEquivalent));
    }
    static NSMenuItem separatorItem() { return sendToClass<"separatorItem", NSMenuItem()>(); }

    void setSubmenu(NSMenu submenu) const;

private:
    [[nodiscard]] NSMenuItem initWithTitleActionKeyEquivalent(NSString title, SEL action,
                                                              NSString keyEquivalent) const {
        return send<"initWithTitle:action:keyEquivalent:", NSMenuItem(NSString, SEL, NSString)>(
            title, action, keyEquivalent);
    }
};

}  // namespace stagehopper::cocoa
