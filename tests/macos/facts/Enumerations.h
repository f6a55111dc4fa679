#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Enumerators, grouped by their enumeration. Source: objc2's generated bindings of Apple's headers,
// commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only).
inline constexpr EnumeratorFact enumerators[] = {
    {"AXError", "i", "kAXErrorSuccess", 0},
    {"AXError", "i", "kAXErrorCannotComplete", -25204},
    {"CGEventFlags", "Q", "kCGEventFlagMaskAlphaShift", 65536},
    {"CGEventFlags", "Q", "kCGEventFlagMaskShift", 131072},
    {"CGEventFlags", "Q", "kCGEventFlagMaskControl", 262144},
    {"CGEventFlags", "Q", "kCGEventFlagMaskAlternate", 524288},
    {"CGEventFlags", "Q", "kCGEventFlagMaskCommand", 1048576},
    {"CGEventTapLocation", "I", "kCGHIDEventTap", 0},
    {"NSActivityOptions", "Q", "NSActivityUserInitiated", 16777215},
    {"NSActivityOptions", "Q", "NSActivityUserInitiatedAllowingIdleSystemSleep", 15728639},
    {"NSApplicationActivationPolicy", "q", "NSApplicationActivationPolicyRegular", 0},
    {"NSBackingStoreType", "Q", "NSBackingStoreBuffered", 2},
    {"NSDateFormatterStyle", "Q", "NSDateFormatterNoStyle", 0},
    {"NSDateFormatterStyle", "Q", "NSDateFormatterMediumStyle", 2},
    {"NSStringCompareOptions", "Q", "NSCaseInsensitiveSearch", 1},
    {"NSStringCompareOptions", "Q", "NSDiacriticInsensitiveSearch", 128},
    {"NSURLSessionWebSocketMessageType", "q", "NSURLSessionWebSocketMessageTypeData", 0},
    {"NSURLSessionWebSocketMessageType", "q", "NSURLSessionWebSocketMessageTypeString", 1},
    {"NSWindowAnimationBehavior", "q", "NSWindowAnimationBehaviorNone", 2},
    {"NSWindowCollectionBehavior", "Q", "NSWindowCollectionBehaviorCanJoinAllSpaces", 1},
    {"NSWindowCollectionBehavior", "Q", "NSWindowCollectionBehaviorFullScreenAuxiliary", 256},
    {"NSWindowStyleMask", "Q", "NSWindowStyleMaskTitled", 1},
    {"NSWindowStyleMask", "Q", "NSWindowStyleMaskClosable", 2},
    {"NSWindowStyleMask", "Q", "NSWindowStyleMaskMiniaturizable", 4},
    {"NSWindowStyleMask", "Q", "NSWindowStyleMaskResizable", 8},
    {"NSWindowStyleMask", "Q", "NSWindowStyleMaskNonactivatingPanel", 128},
    {"WKInactiveSchedulingPolicy", "q", "WKInactiveSchedulingPolicyNone", 2},
    {"WKNavigationActionPolicy", "q", "WKNavigationActionPolicyCancel", 0},
    {"WKNavigationActionPolicy", "q", "WKNavigationActionPolicyAllow", 1},
    {"WKUserScriptInjectionTime", "q", "WKUserScriptInjectionTimeAtDocumentStart", 0},
};

}  // namespace stagehopper::macos_facts
