#include <string>

#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "ports/macos/cocoa/foundation/NSRunLoop.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Behaviors.h"

// The texts that the system's libraries export. Only the system reads their contents, so each text
// is its own name.

namespace {

stagehopper::cocoa::id constantText(const char* text) {
    using namespace stagehopper::recording;
    const auto made = makeConstant("NSString");
    stateOf<StringState>(made).utf8 = text;
    return made;
}

}  // namespace

extern "C" {
objc_object* const NSApplicationDidChangeScreenParametersNotification =
    constantText("NSApplicationDidChangeScreenParametersNotification");
objc_object* const NSRunLoopCommonModes = constantText("NSRunLoopCommonModes");
}

namespace stagehopper::cocoa {
extern "C" {
const CFStringRef kAXTrustedCheckOptionPrompt =
    reinterpret_cast<CFStringRef>(constantText("kAXTrustedCheckOptionPrompt"));
}
}  // namespace stagehopper::cocoa
