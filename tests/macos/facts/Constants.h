#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Numbers, by the vendor's names. Sources: Darwin's <sys/qos.h>, <dispatch/queue.h>,
// <dispatch/time.h>; the rest objc2's generated bindings.
inline constexpr NumberFact numbers[] = {
    {"DISPATCH_TIME_FOREVER", "Q", ~0ULL},      {"DISPATCH_TIME_NOW", "Q", 0},
    {"NSUTF8StringEncoding", "Q", 4},           {"QOS_CLASS_DEFAULT", "I", 0x15},
    {"QOS_CLASS_USER_INITIATED", "I", 0x19},    {"kCFNumberSInt64Type", "q", 4},
    {"kCFStringEncodingUTF8", "I", 0x08000100},
};

// Names in the accessibility interface. Source: Apple's documentation of each constant.
inline constexpr TextFact texts[] = {
    {"kAXChildrenAttribute", "AXChildren"},
    {"kAXEnabledAttribute", "AXEnabled"},
    {"kAXFocusedWindowAttribute", "AXFocusedWindow"},
    {"kAXMenuBarAttribute", "AXMenuBar"},
    // Menu items of some programs also have an attribute of this name; it has no constant.
    {"kAXMenuRole", "AXMenu"},
    {"kAXPressAction", "AXPress"},
    {"kAXRoleAttribute", "AXRole"},
    {"kAXTitleAttribute", "AXTitle"},
    {"kAXWindowsAttribute", "AXWindows"},
};

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

// Variables that the libraries export. Source: as above; those of libSystem: Darwin's headers.
inline constexpr SymbolFact symbols[] = {
    {"NSApplicationDidChangeScreenParametersNotification", "@", appKit},
    {"NSDefaultRunLoopMode", "@", foundation},
    {"NSEventTrackingRunLoopMode", "@", appKit},
    {"NSModalPanelRunLoopMode", "@", appKit},
    {"NSRunLoopCommonModes", "@", foundation},
    {"NSWindowWillCloseNotification", "@", appKit},
    {"_NSConcreteStackBlock", "[32^v]", libSystem},
    {"_dispatch_main_q", "{dispatch_queue_s=}", libSystem},
    {"kAXTrustedCheckOptionPrompt", "^{__CFString=}", applicationServices},
};

}  // namespace stagehopper::macos_facts
