#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Messages of WebKit, sorted by class and selector. Source: objc2's generated bindings of Apple's
// headers, commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only).
inline constexpr MethodFact webKitMethods[] = {
    {"WKFrameInfo", "isMainFrame", "B@:"},
    {"WKNavigationAction", "request", "@@:"},
    {"WKNavigationAction", "targetFrame", "@@:"},
    {"WKPreferences", "setInactiveSchedulingPolicy:", "v@:q"},
    {"WKScriptMessage", "body", "@@:"},
    {"WKScriptMessage", "frameInfo", "@@:"},
    {"WKScriptMessage", "name", "@@:"},
    {"WKUserContentController", "addScriptMessageHandler:name:", "v@:@@"},
    {"WKUserContentController", "addUserScript:", "v@:@"},
    {"WKUserContentController", "removeScriptMessageHandlerForName:", "v@:@"},
    {"WKUserScript", "initWithSource:injectionTime:forMainFrameOnly:", "@@:@qB"},
    {"WKWebView", "URL", "@@:"},
    {"WKWebView", "evaluateJavaScript:completionHandler:", "v@:@@?", "v@?@@"},
    {"WKWebView", "initWithFrame:configuration:", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}@"},
    {"WKWebView", "loadFileURL:allowingReadAccessToURL:", "@@:@@"},
    {"WKWebView", "navigationDelegate", "@@:"},
    {"WKWebView", "reload", "@@:"},
    {"WKWebView", "setNavigationDelegate:", "v@:@"},
    {"WKWebView", "stopLoading", "v@:"},
    {"WKWebView", "title", "@@:"},
    {"WKWebViewConfiguration", "preferences", "@@:"},
    {"WKWebViewConfiguration", "setUserContentController:", "v@:@"},
    {"WKWebViewConfiguration", "setWebsiteDataStore:", "v@:@"},
    {"WKWebViewConfiguration", "userContentController", "@@:"},
    {"WKWebsiteDataStore", "+nonPersistentDataStore", "@@:"},
};

}  // namespace stagehopper::macos_facts
