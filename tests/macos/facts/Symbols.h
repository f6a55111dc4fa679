#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Variables that the libraries export. Source: objc2's generated bindings of Apple's headers,
// commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only); those of
// libSystem: Darwin's headers.
inline constexpr SymbolFact symbols[] = {
    {"NSApp", "@", Library::appKit},
    {"NSApplicationDidChangeScreenParametersNotification", "@", Library::appKit},
    {"NSDefaultRunLoopMode", "@", Library::foundation},
    {"NSEventTrackingRunLoopMode", "@", Library::appKit},
    {"NSFileHandleDataAvailableNotification", "@", Library::foundation},
    {"NSFileHandleReadToEndOfFileCompletionNotification", "@", Library::foundation},
    {"NSLocalizedDescriptionKey", "@", Library::foundation},
    {"NSModalPanelRunLoopMode", "@", Library::appKit},
    {"NSPasteboardTypeString", "@", Library::appKit},
    {"NSRunLoopCommonModes", "@", Library::foundation},
    {"NSTaskDidTerminateNotification", "@", Library::foundation},
    {"NSURLErrorDomain", "@", Library::foundation},
    {"NSWindowWillCloseNotification", "@", Library::appKit},
    {"NSWorkspaceDidActivateApplicationNotification", "@", Library::appKit},
    {"_NSConcreteGlobalBlock", "[32^v]", Library::libSystem},
    {"_NSConcreteStackBlock", "[32^v]", Library::libSystem},
    {"_dispatch_main_q", "{dispatch_queue_s=}", Library::libSystem},
    {"kAXTrustedCheckOptionPrompt", "^{__CFString=}", Library::applicationServices},
    {"kCFBooleanFalse", "^{__CFBoolean=}", Library::coreFoundation},
    {"kCFBooleanTrue", "^{__CFBoolean=}", Library::coreFoundation},
    {"kCFTypeDictionaryKeyCallBacks", "{?=}", Library::coreFoundation},
    {"kCFTypeDictionaryValueCallBacks", "{?=}", Library::coreFoundation},
};

}  // namespace stagehopper::macos_facts
