#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Numbers, by the vendor's names. Sources: Darwin's <sys/qos.h>, <dispatch/queue.h>,
// <dispatch/time.h>; clang's "Block Implementation" for the block flags; the rest objc2's generated
// bindings.
inline constexpr NumberFact numbers[] = {
    {"BLOCK_HAS_COPY_DISPOSE", "i", 1U << 25U},
    {"BLOCK_HAS_CTOR", "i", 1U << 26U},
    {"BLOCK_HAS_SIGNATURE", "i", 1U << 30U},
    {"DISPATCH_TIME_FOREVER", "Q", ~0ULL},
    {"DISPATCH_TIME_NOW", "Q", 0},
    {"NSEC_PER_SEC", "Q", 1'000'000'000},
    {"NSModalResponseOK", "q", 1},
    {"NSUTF8StringEncoding", "Q", 4},
    {"NSWindowAbove", "q", 1},
    {"QOS_CLASS_BACKGROUND", "I", 0x09},
    {"QOS_CLASS_DEFAULT", "I", 0x15},
    {"QOS_CLASS_UNSPECIFIED", "I", 0x00},
    {"QOS_CLASS_USER_INITIATED", "I", 0x19},
    {"QOS_CLASS_USER_INTERACTIVE", "I", 0x21},
    {"QOS_CLASS_UTILITY", "I", 0x11},
    {"kCFNumberSInt64Type", "q", 4},
    {"kCFStringEncodingUTF8", "I", 0x08000100},
    {"kCGFloatingWindowLevel", "i", 3},
    {"kCGStatusWindowLevel", "i", 25},
};

// Names in the accessibility interface. Source: Apple's documentation of each constant.
inline constexpr TextFact texts[] = {
    {"kAXChildrenAttribute", "AXChildren"},
    {"kAXDescriptionAttribute", "AXDescription"},
    {"kAXDocumentAttribute", "AXDocument"},
    {"kAXEnabledAttribute", "AXEnabled"},
    {"kAXFocusedAttribute", "AXFocused"},
    {"kAXFocusedUIElementAttribute", "AXFocusedUIElement"},
    {"kAXFocusedWindowAttribute", "AXFocusedWindow"},
    {"kAXHelpAttribute", "AXHelp"},
    {"kAXIdentifierAttribute", "AXIdentifier"},
    {"kAXMainAttribute", "AXMain"},
    {"kAXMainWindowAttribute", "AXMainWindow"},
    {"kAXMenuBarAttribute", "AXMenuBar"},
    // Menu items of some programs also have an attribute of this name; it has no constant.
    {"kAXMenuRole", "AXMenu"},
    {"kAXMinimizedAttribute", "AXMinimized"},
    {"kAXParentAttribute", "AXParent"},
    {"kAXPressAction", "AXPress"},
    {"kAXRoleAttribute", "AXRole"},
    {"kAXSubroleAttribute", "AXSubrole"},
    {"kAXTitleAttribute", "AXTitle"},
    {"kAXValueAttribute", "AXValue"},
    {"kAXWindowsAttribute", "AXWindows"},
};

}  // namespace stagehopper::macos_facts
