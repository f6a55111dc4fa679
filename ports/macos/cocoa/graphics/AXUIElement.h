#pragma once

#include <cstdint>

#include "ports/macos/cocoa/foundation/CoreFoundation.h"

// The accessibility interface, as <HIServices/AXUIElement.h> and <HIServices/AXError.h> declare it.

extern "C" {
struct __AXUIElement;
}

namespace stagehopper::cocoa {

using AXUIElementRef = const ::__AXUIElement*;

enum AXError : std::int32_t {
    kAXErrorSuccess = 0,
    kAXErrorCannotComplete = -25204,
};

extern "C" {
/// The key of the only option of `AXIsProcessTrustedWithOptions`: whether to ask the user.
extern const CFStringRef kAXTrustedCheckOptionPrompt;

Boolean AXIsProcessTrusted(void);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
CFTypeID AXUIElementGetTypeID(void);
AXUIElementRef AXUIElementCreateApplication(int process);
AXUIElementRef AXUIElementCreateSystemWide(void);
/// On success the caller owns `value`.
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                      CFTypeRef* value);
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
/// How long a call waits for the other program. For the system-wide element: in the whole process;
/// for another element: for that reference only. 0 restores the default.
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float seconds);
}

}  // namespace stagehopper::cocoa
