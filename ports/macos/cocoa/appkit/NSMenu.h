#pragma once

#include "ports/macos/cocoa/appkit/NSMenuItem.h"

namespace stagehopper::cocoa {

/// NSMenu. Main thread only.
class NSMenu : public Handle<NSMenu, NSObject> {
public:
    static constexpr FixedString className{"NSMenu"};
    using Handle::Handle;

    static Owned<NSMenu> make(NSString title) {
        return Owned<NSMenu>::adopt(allocate().initWithTitle(title));
    }

    void addItem(NSMenuItem item) const { send<"addItem:", void(NSMenuItem)>(item); }

private:
    [[nodiscard]] NSMenu initWithTitle(NSString title) const {
        return send<"initWithTitle:", NSMenu(NSString)>(title);
    }
};

inline void NSMenuItem::setSubmenu(NSMenu submenu) const {
    send<"setSubmenu:", void(NSMenu)>(submenu);
}

}  // namespace stagehopper::cocoa
