#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Messages of WebKit, sorted by class and selector. Source: objc2's generated bindings of Apple's
// headers, commit fff28a8e2889d32c2a832672a94eeff42cd6c6d2 (names and type encodings only).
inline constexpr MethodFact webKitMethods[] = {
    {"WKFrameInfo", Kind::instance, "isMainFrame", "B@:"},
    {"WKNavigationAction", Kind::instance, "request", "@@:"},
    {"WKNavigationAction", Kind::instance, "targetFrame", "@@:"},
    {"WKPreferences", Kind::instance, "setInactiveSchedulingPolicy:", "v@:q"},
    {"WKScriptMessage", Kind::instance, "body", "@@:"},
    {"WKScriptMessage", Kind::instance, "frameInfo", "@@:"},
    {"WKScriptMessage", Kind::instance, "name", "@@:"},
    {"WKUserContentController", Kind::instance, "addScriptMessageHandler:name:", "v@:@@"},
    {"WKUserContentController", Kind::instance, "addUserScript:", "v@:@"},
    {"WKUserContentController", Kind::instance, "removeScriptMessageHandlerForName:", "v@:@"},
    {"WKUserScript", Kind::instance, "initWithSource:injectionTime:forMainFrameOnly:", "@@:@qB",
     Returns::retained},
    {"WKWebView", Kind::instance, "URL", "@@:"},
    {"WKWebView", Kind::instance, "evaluateJavaScript:completionHandler:", "v@:@@?", Returns::plain,
     "v@?@@"},
    {"WKWebView", Kind::instance,
     "initWithFrame:configuration:", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}@", Returns::retained},
    {"WKWebView", Kind::instance, "loadFileURL:allowingReadAccessToURL:", "@@:@@"},
    {"WKWebView", Kind::instance, "navigationDelegate", "@@:"},
    {"WKWebView", Kind::instance, "reload", "@@:"},
    {"WKWebView", Kind::instance, "setNavigationDelegate:", "v@:@"},
    {"WKWebView", Kind::instance, "stopLoading", "v@:"},
    {"WKWebView", Kind::instance, "title", "@@:"},
    {"WKWebViewConfiguration", Kind::instance, "preferences", "@@:"},
    {"WKWebViewConfiguration", Kind::instance, "setUserContentController:", "v@:@"},
    {"WKWebViewConfiguration", Kind::instance, "setWebsiteDataStore:", "v@:@"},
    {"WKWebViewConfiguration", Kind::instance, "userContentController", "@@:"},
    {"WKWebsiteDataStore", Kind::classLevel, "nonPersistentDataStore", "@@:"},
};

}  // namespace stagehopper::macos_facts
