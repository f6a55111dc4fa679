#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// What the system asks of objects of ours, sorted by protocol and selector. Source: objc2's
// generated bindings of Apple's headers, commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and
// type encodings only).
inline constexpr CallbackFact callbacks[] = {
    {"NSApplicationDelegate", "application:openFile:", "B@:@@", Need::optional},
    {"NSApplicationDelegate", "application:openFiles:", "v@:@@", Need::optional},
    {"NSApplicationDelegate", "application:openURLs:", "v@:@@", Need::optional},
    {"NSApplicationDelegate", "application:willPresentError:", "@@:@@", Need::optional},
    {"NSApplicationDelegate", "applicationDidBecomeActive:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidChangeScreenParameters:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidFinishLaunching:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidHide:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidResignActive:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidUnhide:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDidUpdate:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationDockMenu:", "@@:@", Need::optional},
    {"NSApplicationDelegate", "applicationOpenUntitledFile:", "B@:@", Need::optional},
    {"NSApplicationDelegate", "applicationShouldAutomaticallyLocalizeKeyEquivalents:", "B@:@",
     Need::optional},
    {"NSApplicationDelegate", "applicationShouldHandleReopen:hasVisibleWindows:", "B@:@B",
     Need::optional},
    {"NSApplicationDelegate", "applicationShouldOpenUntitledFile:", "B@:@", Need::optional},
    {"NSApplicationDelegate", "applicationShouldTerminate:", "Q@:@", Need::optional},
    {"NSApplicationDelegate", "applicationShouldTerminateAfterLastWindowClosed:", "B@:@",
     Need::optional},
    {"NSApplicationDelegate", "applicationSupportsSecureRestorableState:", "B@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillBecomeActive:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillFinishLaunching:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillHide:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillResignActive:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillTerminate:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillUnhide:", "v@:@", Need::optional},
    {"NSApplicationDelegate", "applicationWillUpdate:", "v@:@", Need::optional},
    {"NSURLSessionWebSocketDelegate",
     "URLSession:webSocketTask:didCloseWithCode:reason:", "v@:@@q@", Need::optional},
    {"NSURLSessionWebSocketDelegate", "URLSession:webSocketTask:didOpenWithProtocol:", "v@:@@@",
     Need::optional},
    {"NSWindowDelegate", "windowDidBecomeKey:", "v@:@", Need::optional},
    {"NSWindowDelegate", "windowDidResize:", "v@:@", Need::optional},
    {"NSWindowDelegate", "windowShouldClose:", "B@:@", Need::optional},
    {"NSWindowDelegate", "windowWillClose:", "v@:@", Need::optional},
    {"WKNavigationDelegate", "webView:decidePolicyForNavigationAction:decisionHandler:", "v@:@@@?",
     Need::optional, "v@?q"},
    {"WKNavigationDelegate", "webView:didFailNavigation:withError:", "v@:@@@", Need::optional},
    {"WKNavigationDelegate", "webView:didFinishNavigation:", "v@:@@", Need::optional},
    {"WKNavigationDelegate", "webViewWebContentProcessDidTerminate:", "v@:@", Need::optional},
    {"WKScriptMessageHandler", "userContentController:didReceiveScriptMessage:", "v@:@@",
     Need::required},
    {"WKUIDelegate",
     "webView:runJavaScriptAlertPanelWithMessage:initiatedByFrame:completionHandler:", "v@:@@@@?",
     Need::optional, "v@?"},
    {"WKUIDelegate", "webView:runOpenPanelWithParameters:initiatedByFrame:completionHandler:",
     "v@:@@@@?", Need::optional, "v@?@"},
};

}  // namespace stagehopper::macos_facts
