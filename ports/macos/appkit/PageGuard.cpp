#include "ports/macos/appkit/PageGuard.h"

#include "ports/macos/cocoa/objc/Block.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "ports/macos/cocoa/webkit/WKNavigationAction.h"
#include "ports/macos/cocoa/webkit/WKWebView.h"
#include "ports/macos/system/MacClock.h"
#include "ports/macos/system/MacSystemLog.h"

namespace stagehopper::macos_port {

std::shared_ptr<PageGuard> PageGuard::create() {
    static const auto runtimeClass =
        cocoa::RuntimeClass<PageGuard>("PageGuard")
            .conformsTo("WKNavigationDelegate")
            .method<"webViewWebContentProcessDidTerminate:",
                    &PageGuard::webContentProcessDidTerminate>()
            .method<"webView:decidePolicyForNavigationAction:decisionHandler:",
                    &PageGuard::decidePolicy>()
            .registerClass();
    // Not make_shared: the constructor is private.
    std::shared_ptr<PageGuard> made(new PageGuard);
    made->object_ = runtimeClass.makeInstance(made);
    return made;
}

void PageGuard::load(cocoa::WKWebView view, const std::filesystem::path& page,
                     const std::filesystem::path& readAccess) {
    page_ = page;
    readAccess_ = readAccess;
    address_.clear();
    load(view);
}

void PageGuard::load(cocoa::WKWebView view) {
    // Not "reload": a page that has not finished its first load cannot be reloaded.
    view.loadFileURL(cocoa::NSURL::fileURLWithPath(cocoa::string(page_.native()), false),
                     cocoa::NSURL::fileURLWithPath(cocoa::string(readAccess_.native()), true));
}

void PageGuard::webContentProcessDidTerminate(cocoa::WKWebView view) {
    const bool reloads = reloadLimit_.allowsReload(MacClock().now().time_since_epoch());
    MacSystemLog().write(webkit_ports::pageEndedMessage(page_.filename().native(), reloads));
    if (!reloads) return;
    reload_ =
        std::make_unique<MacWorkItem>(webkit_ports::reloadDelay, [this, view] { load(view); });
}

void PageGuard::decidePolicy(cocoa::WKWebView /*view*/, cocoa::WKNavigationAction action,
                             cocoa::BlockPointer decisionHandler) {
    const cocoa::NSInteger policy = allows(action) ? cocoa::WKNavigationActionPolicyAllow
                                                   : cocoa::WKNavigationActionPolicyCancel;
    cocoa::callBlock(decisionHandler, policy);
}

bool PageGuard::allows(cocoa::WKNavigationAction action) {
    const auto frame = action.targetFrame();
    if (!frame) return false;
    if (!frame.isMainFrame()) return true;
    const auto address = cocoa::text(action.request().url().absoluteString());
    const auto page = address.substr(0, address.find('#'));
    // The first navigation is our own load.
    if (address_.empty()) address_ = page;
    return page == address_;
}

}  // namespace stagehopper::macos_port
