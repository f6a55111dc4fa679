#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/World.h"

// WKWebView, its configuration and its WKUserContentController. What a page sends or asks for has
// properties (see WebPages.cpp).

namespace stagehopper::recording {

namespace {

WebPage& pageOf(Call& call) {
    return World::current().pages.in(call.receiver());
}

/// The view copies its configuration: later changes are without effect, but for those of the
/// content controller, which is shared.
cocoa::id initView(Call& call) {
    const auto view = call.receiver();
    const auto configuration = call.argument<cocoa::id>(1);
    if (configuration == nullptr) noteProblem("a WKWebView without a configuration");
    setProperty(view, "drawsBackground", true);
    setProperty(view, "contentController", propertyObject(configuration, "userContentController"));
    World::current().pages.add(view);
    return view;
}

cocoa::id loadFile(Call& call) {
    auto& page = pageOf(call);
    page.file = pathOf(call.argument<cocoa::id>(0));
    page.readAccess = pathOf(call.argument<cocoa::id>(1));
    if (!page.file.starts_with(page.readAccess)) {
        noteProblem("the page " + page.file + " may not read itself");
    }
    ++page.loads;
    page.alive = true;
    page.loadBegins("file://" + page.file);
    // The navigation.
    return call.make("NSObject");
}

void evaluate(Call& call) {
    auto& page = pageOf(call);
    if (page.loads > 0 && page.alive) page.evaluated.push_back(textOf(call.argument<cocoa::id>(0)));
}

/// One for each configuration.
cocoa::id preferences(Call& call) {
    const auto* name = "preferencesObject";
    if (propertyObject(call.receiver(), name) == nullptr) {
        setProperty(call.receiver(), name, makeObject("WKPreferences").get());
    }
    return propertyObject(call.receiver(), name);
}

/// Key-value coding: a key that the view does not have raises an exception.
void setValueForKey(Call& call) {
    const auto key = textOf(call.argument<cocoa::id>(1));
    if (key != "drawsBackground") noteProblem("a WKWebView has no key \"" + key + "\"");
    setProperty(call.receiver(), key, truthOf(call.argument<cocoa::id>(0)));
}

void addHandler(Call& call) {
    const auto name = textOf(call.argument<cocoa::id>(1));
    auto& handler = call.state<ContentController>().handlers[name];
    if (handler) noteProblem("two script message handlers for \"" + name + "\"");
    handler = Retained(call.argument<cocoa::id>(0));
}

void removeHandler(Call& call) {
    call.state<ContentController>().handlers.erase(textOf(call.argument<cocoa::id>(0)));
}

void addScript(Call& call) {
    call.state<ContentController>().scripts.push_back(
        stateOf<InjectedScript>(call.argument<cocoa::id>(0)));
}

cocoa::id initScript(Call& call) {
    call.state<InjectedScript>() = {textOf(call.argument<cocoa::id>(0)), call.argument<long>(1),
                                    call.argument<bool>(2)};
    return call.receiver();
}

}  // namespace

void defineWebViews() {
    MessagesOf("WKWebView")
        .on("initWithFrame:configuration:", initView)
        .on("loadFileURL:allowingReadAccessToURL:", loadFile)
        .on("evaluateJavaScript:completionHandler:", evaluate)
        .on("setValue:forKey:", setValueForKey);
    MessagesOf("WKWebViewConfiguration").on("preferences", preferences);
    MessagesOf("WKWebsiteDataStore").onClass("nonPersistentDataStore", [](Call& call) {
        return call.make("WKWebsiteDataStore");
    });
    MessagesOf("WKUserContentController")
        .on("addScriptMessageHandler:name:", addHandler)
        .on("removeScriptMessageHandlerForName:", removeHandler)
        .on("addUserScript:", addScript);
    MessagesOf("WKUserScript").on("initWithSource:injectionTime:forMainFrameOnly:", initScript);
}

}  // namespace stagehopper::recording
