#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Superclasses, by name. Source: objc2's generated bindings of Apple's headers, commit
// fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names only).
inline constexpr ClassFact classes[] = {
    {"NSApplication", "NSResponder", appKit},
    {"NSArray", "NSObject", foundation},
    {"NSAutoreleasePool", "NSObject", foundation},
    {"NSBundle", "NSObject", foundation},
    {"NSColor", "NSObject", appKit},
    {"NSData", "NSObject", foundation},
    {"NSDate", "NSObject", foundation},
    {"NSDateFormatter", "NSFormatter", foundation},
    {"NSDictionary", "NSObject", foundation},
    {"NSError", "NSObject", foundation},
    {"NSException", "NSObject", foundation},
    {"NSFileHandle", "NSObject", foundation},
    {"NSFileManager", "NSObject", foundation},
    {"NSFormatter", "NSObject", foundation},
    {"NSHTTPURLResponse", "NSURLResponse", foundation},
    {"NSJSONSerialization", "NSObject", foundation},
    {"NSLocale", "NSObject", foundation},
    {"NSMenu", "NSObject", appKit},
    {"NSMenuItem", "NSObject", appKit},
    {"NSNotification", "NSObject", foundation},
    {"NSNotificationCenter", "NSObject", foundation},
    {"NSNull", "NSObject", foundation},
    {"NSNumber", "NSValue", foundation},
    {"NSObject", "", libobjc},
    {"NSPanel", "NSWindow", appKit},
    {"NSPipe", "NSObject", foundation},
    {"NSProcessInfo", "NSObject", foundation},
    {"NSResponder", "NSObject", appKit},
    {"NSRunLoop", "NSObject", foundation},
    {"NSRunningApplication", "NSObject", appKit},
    {"NSScreen", "NSObject", appKit},
    {"NSString", "NSObject", foundation},
    {"NSTask", "NSObject", foundation},
    {"NSText", "NSView", appKit},
    {"NSThread", "NSObject", foundation},
    {"NSTimer", "NSObject", foundation},
    {"NSURL", "NSObject", foundation},
    {"NSURLRequest", "NSObject", foundation},
    {"NSURLResponse", "NSObject", foundation},
    {"NSURLSession", "NSObject", foundation},
    {"NSURLSessionDataTask", "NSURLSessionTask", foundation},
    {"NSURLSessionTask", "NSObject", foundation},
    {"NSURLSessionWebSocketMessage", "NSObject", foundation},
    {"NSURLSessionWebSocketTask", "NSURLSessionTask", foundation},
    {"NSUUID", "NSObject", foundation},
    {"NSValue", "NSObject", foundation},
    {"NSView", "NSResponder", appKit},
    {"NSWindow", "NSResponder", appKit},
    {"NSWorkspace", "NSObject", appKit},
    {"WKFrameInfo", "NSObject", webKit},
    {"WKNavigationAction", "NSObject", webKit},
    {"WKPreferences", "NSObject", webKit},
    {"WKScriptMessage", "NSObject", webKit},
    {"WKUserContentController", "NSObject", webKit},
    {"WKUserScript", "NSObject", webKit},
    {"WKWebView", "NSView", webKit},
    {"WKWebViewConfiguration", "NSObject", webKit},
    {"WKWebsiteDataStore", "NSObject", webKit},
};

// What the system asks of objects of ours, by protocol. Source: objc2's generated bindings of
// Apple's headers, commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only).
inline constexpr CallbackFact callbacks[] = {
    {"NSApplicationDelegate", "applicationDidFinishLaunching:", "v@:@"},
    {"NSApplicationDelegate", "applicationShouldTerminate:", "Q@:@"},
    {"NSApplicationDelegate", "applicationShouldTerminateAfterLastWindowClosed:", "B@:@"},
    {"NSApplicationDelegate", "applicationSupportsSecureRestorableState:", "B@:@"},
    {"NSApplicationDelegate", "applicationWillFinishLaunching:", "v@:@"},
    {"NSApplicationDelegate", "applicationWillTerminate:", "v@:@"},
    {"NSWindowDelegate", "windowDidResize:", "v@:@"},
    {"NSWindowDelegate", "windowShouldClose:", "B@:@"},
    {"NSWindowDelegate", "windowWillClose:", "v@:@"},
    {"WKNavigationDelegate", "webView:decidePolicyForNavigationAction:decisionHandler:", "v@:@@@?",
     Need::optional, "v@?q"},
    {"WKNavigationDelegate", "webViewWebContentProcessDidTerminate:", "v@:@"},
    {"WKScriptMessageHandler", "userContentController:didReceiveScriptMessage:", "v@:@@",
     Need::required},
};

}  // namespace stagehopper::macos_facts
