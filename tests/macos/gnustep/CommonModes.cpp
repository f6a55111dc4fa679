#include "tests/macos/gnustep/CommonModes.h"

#include "ports/macos/cocoa/foundation/NSRunLoop.h"

extern "C" {
extern const stagehopper::cocoa::id NSDefaultRunLoopMode;
extern const stagehopper::cocoa::id NSEventTrackingRunLoopMode;
extern const stagehopper::cocoa::id NSModalPanelRunLoopMode;
stagehopper::cocoa::IMP class_replaceMethod(stagehopper::cocoa::Class ofClass,
                                            stagehopper::cocoa::SEL name,
                                            stagehopper::cocoa::IMP implementation,
                                            const char* types);
}

namespace stagehopper::cocoa {

namespace {

using AddTimer = void (*)(id, SEL, id timer, id mode);

AddTimer original = nullptr;

void addTimer(id self, SEL name, id timer, id mode) {
    if (text(NSString(mode)) != text(NSString(NSRunLoopCommonModes))) {
        return original(self, name, timer, mode);
    }
    for (const auto each :
         {NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode}) {
        original(self, name, timer, each);
    }
}

}  // namespace

namespace gnustep {

void supplyCommonModes() {
    const auto runLoop = classOf<NSRunLoop>();
    const auto name = selector<"addTimer:forMode:">();
    original = reinterpret_cast<AddTimer>(class_getMethodImplementation(runLoop, name));
    class_replaceMethod(runLoop, name, reinterpret_cast<IMP>(&addTimer),
                        methodEncoding<void, NSTimer, NSString>);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
