#include "tests/macos/recording/webkit/WebPages.h"

#include <stdexcept>
#include <utility>

#include "ports/macos/cocoa/objc/Block.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

Retained makeFrame(bool isMain) {
    auto frame = makeObject("WKFrameInfo");
    setProperty(frame.get(), "isMainFrame", isMain);
    return frame;
}

/// As WebKit asks before each navigation. Without a frame it is for a new window. What the program
/// has no opinion about is allowed.
bool isAllowed(cocoa::id view, std::string_view address, const Retained& frame) {
    constexpr auto question = "webView:decidePolicyForNavigationAction:decisionHandler:";
    const auto delegate = propertyObject(view, "navigationDelegate");
    if (!responds(delegate, question)) return true;
    const auto request = makeObject("NSURLRequest");
    setProperty(request.get(), "URL", makeUrl(std::string(address)).get());
    const auto action = makeObject("WKNavigationAction");
    setProperty(action.get(), "request", request.get());
    setProperty(action.get(), "targetFrame", frame.get());
    int answers = 0;
    long policy = 0;
    const cocoa::Block<void(long)> handler([&answers, &policy](long decided) {
        ++answers;
        policy = decided;
    });
    sendToPort(delegate, question, view, action.get(), handler.get());
    // The real one raises an exception.
    if (answers != 1)
        noteProblem("a decision handler was called " + std::to_string(answers) + " times");
    return policy == 1;
}

void deliver(cocoa::id view, const std::string& name, const Retained& body, bool fromMainFrame) {
    const auto controller = propertyObject(view, "contentController");
    const auto& handlers = stateOf<ContentController>(controller).handlers;
    const auto found = handlers.find(name);
    // The page's script gets an exception.
    if (found == handlers.end()) return;
    const Retained handler = found->second;
    const auto message = makeObject("WKScriptMessage");
    setProperty(message.get(), "body", body.get());
    setProperty(message.get(), "name", makeString(name).get());
    setProperty(message.get(), "frameInfo", makeFrame(fromMainFrame).get());
    sendToPort(handler.get(), "userContentController:didReceiveScriptMessage:", controller,
               message.get());
}

}  // namespace

void WebPage::posts(std::string_view handler, std::string_view text) const {
    posts(handler, makeString(std::string(text)));
}

void WebPage::posts(std::string_view handler, Retained body) const {
    post(handler, std::move(body), true);
}

void WebPage::postsFromFrame(std::string_view handler, std::string_view text) const {
    post(handler, makeString(std::string(text)), false);
}

void WebPage::post(std::string_view handler, Retained body, bool fromMainFrame) const {
    queues::async(
        "main", [view = view_, name = std::string(handler), body = std::move(body), fromMainFrame] {
            const Retained shown(view.get());
            if (shown) deliver(shown.get(), name, body, fromMainFrame);
        });
}

void WebPage::userDrops(std::string_view address) {
    queues::async("main", [this, view = view_, address = std::string(address)] {
        const Retained shown(view.get());
        if (shown && isAllowed(shown.get(), address, makeFrame(true))) file = address;
    });
}

bool WebPage::frameMayGoTo(std::string_view address) const {
    return isAllowed(view(), address, makeFrame(false));
}

bool WebPage::mayOpenWindow(std::string_view address) const {
    return isAllowed(view(), address, {});
}

void WebPage::loadBegins(const std::string& address) const {
    queues::async("main", [view = view_, address] {
        const Retained shown(view.get());
        if (!shown || isAllowed(shown.get(), address, makeFrame(true))) return;
        noteProblem("the program refuses its own page " + address);
    });
}

void WebPage::processDies() {
    alive = false;
    queues::async("main", [view = view_] {
        const Retained shown(view.get());
        if (!shown) return;
        const auto delegate = propertyObject(shown.get(), "navigationDelegate");
        sendToPort(delegate, "webViewWebContentProcessDidTerminate:", shown.get());
    });
}

bool WebPage::drawsBackground() const {
    return view() == nullptr || property(view(), "drawsBackground").as<bool>();
}

ContentController& WebPage::controller() const {
    return stateOf<ContentController>(propertyObject(view(), "contentController"));
}

WebPage& WebPages::in(cocoa::id view) const {
    for (const auto& page : pages_) {
        if (view != nullptr && page->view() == view) return *page;
    }
    throw std::logic_error("no page in " + describe(view));
}

}  // namespace stagehopper::recording
