#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/system/World.h"
#include "tests/macos/recording/webkit/ContentController.h"

// WKWebView.

namespace stagehopper::recording {

namespace {

WebPage& pageOf(Call& call) {
    return World::current().pages.in(call.receiver());
}

/// The view copies its configuration: later changes are without effect, but for those of the
/// content controller, which is shared.
Value init(Call& call) {
    const auto view = call.receiver();
    const auto configuration = call.argument<cocoa::id>(1);
    if (configuration == nullptr) noteProblem("a WKWebView without a configuration");
    setProperty(view, "frame", call.argument<cocoa::CGRect>(0));
    setProperty(view, "drawsBackground", true);
    Retained controller;
    if (configuration != nullptr) {
        controller = Retained(property(configuration, "userContentController").object());
    }
    if (!controller) controller = makeObject("WKUserContentController");
    setProperty(view, "contentController", controller.get());
    World::current().pages.add(view);
    return view;
}

cocoa::id navigation(Call& call) {
    return call.make("NSObject");
}

Value loadFile(Call& call) {
    auto& page = pageOf(call);
    page.file = pathOf(call.argument<cocoa::id>(0));
    page.readAccess = pathOf(call.argument<cocoa::id>(1));
    if (!page.file.starts_with(page.readAccess)) {
        noteProblem("the page " + page.file + " may not read itself");
    }
    ++page.loads;
    page.stopped = false;
    page.alive = true;
    page.loadBegins("file://" + page.file);
    return navigation(call);
}

Value stopLoading(Call& call) {
    pageOf(call).stopped = true;
    return {};
}

Value evaluate(Call& call) {
    auto& page = pageOf(call);
    if (page.loads > 0 && page.alive) page.evaluated.push_back(textOf(call.argument<cocoa::id>(0)));
    return {};
}

/// One for each configuration.
Value preferences(Call& call) {
    const auto known = property(call.receiver(), "preferencesObject").object();
    if (known != nullptr) return known;
    const auto made = makeObject("WKPreferences");
    setProperty(call.receiver(), "preferencesObject", made.get());
    return made.get();
}

/// Key-value coding: a key that the view does not have raises an exception.
Value setValueForKey(Call& call) {
    const auto key = textOf(call.argument<cocoa::id>(1));
    if (key != "drawsBackground") noteProblem("a WKWebView has no key \"" + key + "\"");
    setProperty(call.receiver(), key, truthOf(call.argument<cocoa::id>(0)));
    return {};
}

}  // namespace

cocoa::id contentControllerOf(cocoa::id view) {
    return isKindOf(view, "WKWebView") ? property(view, "contentController").object() : nullptr;
}

void defineWebViews() {
    constexpr auto view = "WKWebView";
    define(view, MessageKind::instance, "initWithFrame:configuration:", init);
    define(view, MessageKind::instance, "loadFileURL:allowingReadAccessToURL:", loadFile);
    define(view, MessageKind::instance, "stopLoading", stopLoading);
    define(view, MessageKind::instance, "evaluateJavaScript:completionHandler:", evaluate);
    define(view, MessageKind::instance, "setValue:forKey:", setValueForKey);
    define("WKWebViewConfiguration", MessageKind::instance, "preferences", preferences);
    define("WKWebsiteDataStore", MessageKind::classLevel, "nonPersistentDataStore",
           [](Call& call) -> Value { return call.make("WKWebsiteDataStore"); });
    define("WKNavigationAction", MessageKind::instance, "request",
           [](Call& call) -> Value { return property(call.receiver(), "asked").object(); });
    define("WKNavigationAction", MessageKind::instance, "targetFrame",
           [](Call& call) -> Value { return property(call.receiver(), "target").object(); });
    define("NSURLRequest", MessageKind::instance, "URL",
           [](Call& call) -> Value { return property(call.receiver(), "url").object(); });
}

}  // namespace stagehopper::recording
