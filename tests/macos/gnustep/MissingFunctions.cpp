// C functions of macOS that the linker asks for and GNUstep has not: nobody has trusted this
// program, no other program has elements, and no key can be pressed.

#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"
#include "ports/macos/cocoa/graphics/CGEvent.h"
#include "ports/macos/cocoa/graphics/CGWindowLevel.h"

namespace stagehopper::cocoa {

namespace {

class NSBoolNumber : public Handle<NSBoolNumber, NSNumber> {
public:
    static constexpr FixedString className{"NSBoolNumber"};
    using Handle::Handle;
};

constexpr auto apiDisabled = static_cast<AXError>(-25211);

}  // namespace

extern "C" {

const CFStringRef kAXTrustedCheckOptionPrompt = nullptr;

Boolean AXIsProcessTrusted(void) {
    return 0;
}
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef /*options*/) {
    return 0;
}
CFTypeID AXUIElementGetTypeID(void) {
    return 0;
}
AXUIElementRef AXUIElementCreateApplication(int /*process*/) {
    return nullptr;
}
AXUIElementRef AXUIElementCreateSystemWide(void) {
    return nullptr;
}
AXError AXUIElementCopyAttributeValue(AXUIElementRef /*element*/, CFStringRef /*attribute*/,
                                      CFTypeRef* /*value*/) {
    return apiDisabled;
}
AXError AXUIElementPerformAction(AXUIElementRef /*element*/, CFStringRef /*action*/) {
    return apiDisabled;
}
AXError AXUIElementSetMessagingTimeout(AXUIElementRef /*element*/, float /*seconds*/) {
    return apiDisabled;
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef /*source*/, CGKeyCode /*key*/,
                                      bool /*keyDown*/) {
    return nullptr;
}
CGEventFlags CGEventGetFlags(CGEventRef /*event*/) {
    return {};
}
void CGEventSetFlags(CGEventRef /*event*/, CGEventFlags /*flags*/) {}
void CGEventPost(CGEventTapLocation /*tap*/, CGEventRef /*event*/) {}
void CGEventPostToPid(int /*process*/, CGEventRef /*event*/) {}

// Only JSON has objects that are asked for their type. GNUstep has a class of its own for Booleans.
CFTypeID CFGetTypeID(CFTypeRef object) {
    return NSObject(foundationObject(object)).as<NSBoolNumber>() ? CFBooleanGetTypeID() : 0;
}
CFTypeID CFArrayGetTypeID(void) {
    return 0;
}
CFTypeID CFBooleanGetTypeID(void) {
    return 1;
}
CFTypeID CFNumberGetTypeID(void) {
    return 0;
}
CFTypeID CFStringGetTypeID(void) {
    return 0;
}
CFIndex CFArrayGetCount(CFArrayRef /*array*/) {
    return 0;
}
CFTypeRef CFArrayGetValueAtIndex(CFArrayRef /*array*/, CFIndex /*index*/) {
    return nullptr;
}
Boolean CFBooleanGetValue(CFBooleanRef /*boolean*/) {
    return 0;
}
Boolean CFNumberGetValue(CFNumberRef /*number*/, CFNumberType /*type*/, void* /*value*/) {
    return 0;
}
CFTypeRef CFRetain(CFTypeRef object) {
    return object;
}
void CFRelease(CFTypeRef /*object*/) {}

// Above the highest level that GNUstep knows, that of screen savers.
CGWindowLevel CGShieldingWindowLevel(void) {
    return 1001;
}

}  // extern "C"

}  // namespace stagehopper::cocoa
