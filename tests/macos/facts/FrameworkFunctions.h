#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Core Foundation, and Foundation's log. Source: Apple's documentation of each function.
inline constexpr FunctionFact coreFoundationFunctions[] = {
    {"CFArrayGetCount", "q(^{__CFArray=})", Library::coreFoundation},
    {"CFArrayGetTypeID", "Q()", Library::coreFoundation},
    {"CFArrayGetValueAtIndex", "r^v(^{__CFArray=},q)", Library::coreFoundation},
    {"CFBooleanGetTypeID", "Q()", Library::coreFoundation},
    {"CFBooleanGetValue", "C(^{__CFBoolean=})", Library::coreFoundation},
    {"CFDictionaryCreate", "^{__CFDictionary=}(^{__CFAllocator=},r^^v,r^^v,q,r^{?=},r^{?=})",
     Library::coreFoundation, Returns::retained},
    {"CFDictionaryGetTypeID", "Q()", Library::coreFoundation},
    {"CFEqual", "C(r^v,r^v)", Library::coreFoundation},
    {"CFGetTypeID", "Q(r^v)", Library::coreFoundation},
    {"CFNumberGetTypeID", "Q()", Library::coreFoundation},
    {"CFNumberGetValue", "C(^{__CFNumber=},q,^v)", Library::coreFoundation},
    {"CFRelease", "v(r^v)", Library::coreFoundation},
    {"CFRetain", "r^v(r^v)", Library::coreFoundation},
    {"CFRunLoopGetMain", "^{__CFRunLoop=}()", Library::coreFoundation},
    {"CFRunLoopWakeUp", "v(^{__CFRunLoop=})", Library::coreFoundation},
    {"CFStringCreateWithBytes", "^{__CFString=}(^{__CFAllocator=},r^C,q,I,C)",
     Library::coreFoundation, Returns::retained},
    {"CFStringGetLength", "q(^{__CFString=})", Library::coreFoundation},
    {"CFStringGetTypeID", "Q()", Library::coreFoundation},
    {"NSLog", "v(@,...)", Library::foundation},
};

// Accessibility and events. Source: objc2's generated bindings of Apple's headers, commit
// fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only). Apple's documentation
// defines which pointers are const.
inline constexpr FunctionFact applicationServicesFunctions[] = {
    {"AXIsProcessTrusted", "C()", Library::applicationServices},
    {"AXIsProcessTrustedWithOptions", "C(^{__CFDictionary=})", Library::applicationServices},
    {"AXUIElementCopyActionNames", "i(^{__AXUIElement=},^^{__CFArray=})",
     Library::applicationServices, Returns::retained},
    {"AXUIElementCopyAttributeNames", "i(^{__AXUIElement=},^^{__CFArray=})",
     Library::applicationServices, Returns::retained},
    {"AXUIElementCopyAttributeValue", "i(^{__AXUIElement=},^{__CFString=},r^^v)",
     Library::applicationServices, Returns::retained},
    {"AXUIElementCreateApplication", "^{__AXUIElement=}(i)", Library::applicationServices,
     Returns::retained},
    {"AXUIElementCreateSystemWide", "^{__AXUIElement=}()", Library::applicationServices,
     Returns::retained},
    {"AXUIElementGetPid", "i(^{__AXUIElement=},^i)", Library::applicationServices},
    {"AXUIElementGetTypeID", "Q()", Library::applicationServices},
    {"AXUIElementIsAttributeSettable", "i(^{__AXUIElement=},^{__CFString=},^C)",
     Library::applicationServices},
    {"AXUIElementPerformAction", "i(^{__AXUIElement=},^{__CFString=})",
     Library::applicationServices},
    {"AXUIElementSetAttributeValue", "i(^{__AXUIElement=},^{__CFString=},r^v)",
     Library::applicationServices},
    {"AXUIElementSetMessagingTimeout", "i(^{__AXUIElement=},f)", Library::applicationServices},
    {"AXValueGetType", "I(^{__AXValue=})", Library::applicationServices},
    {"AXValueGetTypeID", "Q()", Library::applicationServices},
    {"AXValueGetValue", "C(^{__AXValue=},I,^v)", Library::applicationServices},
    {"CGEventCreateKeyboardEvent", "^{__CGEvent=}(^{__CGEventSource=},S,B)", Library::coreGraphics,
     Returns::retained},
    {"CGEventGetFlags", "Q(^{__CGEvent=})", Library::coreGraphics},
    {"CGEventGetIntegerValueField", "q(^{__CGEvent=},I)", Library::coreGraphics},
    {"CGEventGetTypeID", "Q()", Library::coreGraphics},
    {"CGEventKeyboardSetUnicodeString", "v(^{__CGEvent=},Q,r^S)", Library::coreGraphics},
    {"CGEventPost", "v(I,^{__CGEvent=})", Library::coreGraphics},
    {"CGEventPostToPid", "v(i,^{__CGEvent=})", Library::coreGraphics},
    {"CGEventSetFlags", "v(^{__CGEvent=},Q)", Library::coreGraphics},
    {"CGEventSourceCreate", "^{__CGEventSource=}(i)", Library::coreGraphics, Returns::retained},
    {"CGMainDisplayID", "I()", Library::coreGraphics},
    {"CGPreflightPostEventAccess", "B()", Library::coreGraphics},
    {"CGRequestPostEventAccess", "B()", Library::coreGraphics},
    {"CGShieldingWindowLevel", "i()", Library::coreGraphics},
    {"CGWindowLevelForKey", "i(i)", Library::coreGraphics},
};

}  // namespace stagehopper::macos_facts
