#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// The Objective-C runtime. Source: Darwin's <objc/runtime.h> and <objc/message.h>, as C sees them.
inline constexpr FunctionFact runtimeFunctions[] = {
    {"class_addIvar", "B(#,r*,Q,C,r*)", libobjc},
    {"class_addMethod", "B(#,:,^?,r*)", libobjc},
    {"class_addProtocol", "B(#,@)", libobjc},
    {"class_getClassMethod", "^{objc_method=}(#,:)", libobjc},
    {"class_getInstanceMethod", "^{objc_method=}(#,:)", libobjc},
    {"class_getInstanceVariable", "^{objc_ivar=}(#,r*)", libobjc},
    {"class_getMethodImplementation", "^?(#,:)", libobjc},
    {"class_getName", "r*(#)", libobjc},
    {"class_getSuperclass", "#(#)", libobjc},
    {"class_respondsToSelector", "B(#,:)", libobjc},
    {"ivar_getOffset", "q(^{objc_ivar=})", libobjc},
    {"method_getTypeEncoding", "r*(^{objc_method=})", libobjc},
    {"objc_allocateClassPair", "#(#,r*,Q)", libobjc},
    {"objc_getClass", "#(r*)", libobjc},
    {"objc_getProtocol", "@(r*)", libobjc},
    {"objc_msgSend", "v()", libobjc},
    {"objc_msgSend_stret", "v()", libobjc},
    {"objc_registerClassPair", "v(#)", libobjc},
    {"object_getClass", "#(@)", libobjc},
    {"sel_registerName", ":(r*)", libobjc},
};

// What compilers call on their own. Source: clang's documentation of automatic reference counting.
inline constexpr FunctionFact compilerFunctions[] = {
    {"objc_autoreleasePoolPop", "v(^v)", libobjc},
    {"objc_autoreleasePoolPush", "^v()", libobjc},
    {"objc_retain", "@(@)", libobjc},
};

// Blocks. Source: Darwin's <Block.h>.
inline constexpr FunctionFact blockFunctions[] = {
    {"_Block_copy", "^v(r^v)", libSystem},
    {"_Block_release", "v(r^v)", libSystem},
};

// Queues and semaphores. Source: Darwin's <dispatch/*.h>, as C sees them.
inline constexpr FunctionFact dispatchFunctions[] = {
    {"dispatch_after_f", "v(Q,^{dispatch_queue_s=},^v,^?)", libSystem},
    {"dispatch_async_f", "v(^{dispatch_queue_s=},^v,^?)", libSystem},
    {"dispatch_get_global_queue", "^{dispatch_queue_s=}(q,Q)", libSystem},
    {"dispatch_queue_create", "^{dispatch_queue_s=}(r*,^{dispatch_queue_attr_s=})", libSystem},
    {"dispatch_release", "v(^{dispatch_object_s=})", libSystem},
    {"dispatch_semaphore_create", "^{dispatch_semaphore_s=}(q)", libSystem},
    {"dispatch_semaphore_signal", "q(^{dispatch_semaphore_s=})", libSystem},
    {"dispatch_semaphore_wait", "q(^{dispatch_semaphore_s=},Q)", libSystem},
    {"dispatch_time", "Q(Q,q)", libSystem},
};

// Core Foundation, and Foundation's log. Source: Apple's documentation of each function.
inline constexpr FunctionFact coreFoundationFunctions[] = {
    {"CFArrayGetCount", "q(^{__CFArray=})", coreFoundation},
    {"CFArrayGetTypeID", "Q()", coreFoundation},
    {"CFArrayGetValueAtIndex", "r^v(^{__CFArray=},q)", coreFoundation},
    {"CFBooleanGetTypeID", "Q()", coreFoundation},
    {"CFBooleanGetValue", "C(^{__CFBoolean=})", coreFoundation},
    {"CFGetTypeID", "Q(r^v)", coreFoundation},
    {"CFNumberGetTypeID", "Q()", coreFoundation},
    {"CFNumberGetValue", "C(^{__CFNumber=},q,^v)", coreFoundation},
    {"CFRelease", "v(r^v)", coreFoundation},
    {"CFRetain", "r^v(r^v)", coreFoundation},
    {"CFStringGetTypeID", "Q()", coreFoundation},
    {"NSLog", "v(@,...)", foundation},
};

// Accessibility and events. Source: objc2's generated bindings of Apple's headers, commit
// fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only). Apple's documentation
// defines which pointers are const.
inline constexpr FunctionFact applicationServicesFunctions[] = {
    {"AXIsProcessTrusted", "C()", applicationServices},
    {"AXIsProcessTrustedWithOptions", "C(^{__CFDictionary=})", applicationServices},
    {"AXUIElementCopyAttributeValue", "i(^{__AXUIElement=},^{__CFString=},r^^v)",
     applicationServices},
    {"AXUIElementCreateApplication", "^{__AXUIElement=}(i)", applicationServices},
    {"AXUIElementCreateSystemWide", "^{__AXUIElement=}()", applicationServices},
    {"AXUIElementGetTypeID", "Q()", applicationServices},
    {"AXUIElementPerformAction", "i(^{__AXUIElement=},^{__CFString=})", applicationServices},
    {"AXUIElementSetMessagingTimeout", "i(^{__AXUIElement=},f)", applicationServices},
    {"CGEventCreateKeyboardEvent", "^{__CGEvent=}(^{__CGEventSource=},S,B)", coreGraphics},
    {"CGEventGetFlags", "Q(^{__CGEvent=})", coreGraphics},
    {"CGEventPost", "v(I,^{__CGEvent=})", coreGraphics},
    {"CGEventPostToPid", "v(i,^{__CGEvent=})", coreGraphics},
    {"CGEventSetFlags", "v(^{__CGEvent=},Q)", coreGraphics},
    {"CGShieldingWindowLevel", "i()", coreGraphics},
};

}  // namespace stagehopper::macos_facts
