#include "tests/macos/recording/WebPages.h"

#include <stdexcept>
#include <utility>

#include "tests/macos/recording/Behaviours.h"
#include "tests/macos/recording/Callbacks.h"
#include "tests/macos/recording/ContentController.h"
#include "tests/macos/recording/Foundation.h"
#include "tests/macos/recording/Queues.h"

namespace stagehopper::recording {

namespace {

void deliver(cocoa::id view, const std::string& name, const Kept& body) {
    const auto controller = contentControllerOf(view);
    if (controller == nullptr) return;
    const auto& handlers = stateOf<ContentControllerState>(controller).handlers;
    const auto found = handlers.find(name);
    // The page's script gets an exception.
    if (found == handlers.end()) return;
    const Kept handler = found->second;
    const auto message = makeObject("WKScriptMessage");
    setProperty(message.get(), "posted", body.get());
    setProperty(message.get(), "handler", makeString(name).get());
    tell(handler.get(), "userContentController:didReceiveScriptMessage:", controller,
         message.get());
}

}  // namespace

void WebPage::posts(std::string_view handler, std::string_view text) const {
    posts(handler, makeString(std::string(text)));
}

void WebPage::posts(std::string_view handler, Kept body) const {
    queues::async("main", [view = view_, name = std::string(handler), body = std::move(body)] {
        if (const Kept shown(view.get()); shown) deliver(shown.get(), name, body);
    });
}

void WebPage::processDies() {
    alive = false;
    queues::async("main", [view = view_] {
        const Kept shown(view.get());
        if (!shown) return;
        const auto delegate = property(shown.get(), "navigationDelegate").object();
        tell(delegate, "webViewWebContentProcessDidTerminate:", shown.get());
    });
}

cocoa::CGRect WebPage::frame() const {
    return view() == nullptr ? cocoa::CGRect() : property(view(), "frame").as<cocoa::CGRect>();
}

bool WebPage::drawsBackground() const {
    return view() == nullptr || property(view(), "drawsBackground").as<bool>();
}

std::vector<std::string> WebPage::handlers() const {
    std::vector<std::string> names;
    if (const auto controller = contentControllerOf(view())) {
        for (const auto& [name, handler] : stateOf<ContentControllerState>(controller).handlers) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<InjectedScript> WebPage::injectedScripts() const {
    std::vector<InjectedScript> scripts;
    if (const auto controller = contentControllerOf(view())) {
        for (const auto& script : stateOf<ContentControllerState>(controller).scripts) {
            scripts.push_back(stateOf<InjectedScript>(script.get()));
        }
    }
    return scripts;
}

WebPage& WebPages::in(cocoa::id view) const {
    for (const auto& page : pages_) {
        if (view != nullptr && page->view() == view) return *page;
    }
    throw std::logic_error("no page in " + describe(view));
}

}  // namespace stagehopper::recording
