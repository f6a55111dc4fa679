#include "ports/macos/PageGuard.h"

#include "ports/macos/cocoa/RuntimeClass.h"
#include "ports/macos/cocoa/WKWebView.h"

namespace stagehopper::macos_port {

std::shared_ptr<PageGuard> PageGuard::create() {
    static const auto runtimeClass = cocoa::RuntimeClass<PageGuard>("PageGuard")
                                         .conformsTo("WKNavigationDelegate")
                                         .method<"webViewWebContentProcessDidTerminate:",
                                                 &PageGuard::webContentProcessDidTerminate>()
                                         .registerClass();
    // Not make_shared: the constructor is private.
    std::shared_ptr<PageGuard> made(new PageGuard);
    made->object_ = runtimeClass.makeInstance(made);
    return made;
}

void PageGuard::webContentProcessDidTerminate(cocoa::WKWebView view) {
    view.reload();
}

}  // namespace stagehopper::macos_port
