#include "tests/macos/gnustep/MenuBarTitles.h"

#include <string>

#include "ports/macos/cocoa/appkit/NSMenu.h"
#include "ports/macos/cocoa/foundation/NSProcessInfo.h"

extern "C" {
stagehopper::cocoa::IMP class_replaceMethod(stagehopper::cocoa::Class ofClass,
                                            stagehopper::cocoa::SEL name,
                                            stagehopper::cocoa::IMP implementation,
                                            const char* types);
}

namespace stagehopper::cocoa {

namespace {

template <class Handle>
using Title = Message<Handle, MessageKind::instance, "title", NSString()>;
using SetTitle = Message<NSMenuItem, MessageKind::instance, "setTitle:", void(NSString)>;
using ProcessName = Message<NSProcessInfo, MessageKind::instance, "processName", NSString()>;
using SetSubmenu = void (*)(id, SEL, id);

SetSubmenu original = nullptr;

void setSubmenu(id self, SEL name, id submenu) {
    if (text(Title<NSMenuItem>::send(self)).empty()) {
        const auto title = Title<NSMenu>::send(submenu);
        SetTitle::send(self, text(title).empty()
                                 ? ProcessName::send(NSProcessInfo::processInfo().pointer())
                                 : title);
    }
    original(self, name, submenu);
}

}  // namespace

namespace gnustep {

void showMenuTitlesInMenuBar() {
    const auto item = classOf<NSMenuItem>();
    const auto name = selector<"setSubmenu:">();
    original = reinterpret_cast<SetSubmenu>(class_getMethodImplementation(item, name));
    class_replaceMethod(item, name, reinterpret_cast<IMP>(&setSubmenu),
                        methodEncoding<void, NSMenu>);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
