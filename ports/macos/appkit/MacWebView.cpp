#include "ports/macos/appkit/MacWebView.h"

#include <utility>

#include "ports/macos/appkit/BridgeHandlerObject.h"
#include "ports/macos/appkit/Geometry.h"
#include "ports/macos/appkit/PageGuard.h"
#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/webkit/FrameMark.h"

namespace stagehopper::macos_port {

namespace {

/// The overlay never becomes the key window, and a slide show may cover the panel: WebKit would
/// stop the timers of both.
void keepRunningWhenCovered(cocoa::WKPreferences preferences) {
    if (preferences.respondsToSelector(cocoa::selector<"setInactiveSchedulingPolicy:">())) {
        preferences.setInactiveSchedulingPolicy(cocoa::WKInactiveSchedulingPolicyNone);
    }
}

}  // namespace

MacWebView::MacWebView(const platform::Rect& frame,
                       const platform::WebViewConfiguration& configuration)
    : pageGuard_(PageGuard::create()), view_(makeView(frame, configuration)) {}

MacWebView::~MacWebView() {
    for (const auto& route : messageRoutes_) {
        content_->removeScriptMessageHandlerForName(cocoa::string(route.name));
    }
    view_->setNavigationDelegate(nullptr);
    view_->stopLoading();
}

cocoa::Owned<cocoa::WKWebView> MacWebView::makeView(
    const platform::Rect& frame, const platform::WebViewConfiguration& configuration) {
    const auto native = cocoa::WKWebViewConfiguration::make();
    content_ = cocoa::WKUserContentController::make();
    for (const auto& [name, handler] : configuration.messageHandlers) {
        addMessageHandler(name, handler);
    }
    addUserScript(webkit_ports::frameMarkScript, false);
    for (const auto& script : configuration.userScripts) addUserScript(script.source, true);
    native->setUserContentController(content_.get());
    // Data that another program stored under the backend's address must not come back.
    native->setWebsiteDataStore(cocoa::WKWebsiteDataStore::nonPersistentDataStore());
    keepRunningWhenCovered(native->preferences());
    auto view = cocoa::WKWebView::make(toCGRect(frame), native.get());
    view->setNavigationDelegate(pageGuard_->object());
    return view;
}

void MacWebView::addMessageHandler(const std::string& name,
                                   std::shared_ptr<platform::ScriptMessageHandler> handler) {
    auto object = BridgeHandlerObject::create(handler);
    content_->addScriptMessageHandler(object->object(), cocoa::string(name));
    messageRoutes_.push_back({name, std::move(handler), std::move(object)});
}

void MacWebView::addUserScript(std::string_view source, bool mainFrameOnly) {
    constexpr auto atStart = cocoa::WKUserScriptInjectionTimeAtDocumentStart;
    const auto native = cocoa::WKUserScript::make(cocoa::string(source), atStart, mainFrameOnly);
    content_->addUserScript(native.get());
}

void MacWebView::loadFile(const std::filesystem::path& file,
                          const std::filesystem::path& readAccess) {
    pageGuard_->load(view_.get(), file, readAccess);
}

void MacWebView::evaluateJavaScript(std::string_view script) {
    view_->evaluateJavaScript(cocoa::string(script));
}

void MacWebView::setDrawsBackground(bool drawsBackground) {
    // A property of the view without a public method.
    view_->setValueForKey(cocoa::NSNumber::numberWithBool(drawsBackground),
                          cocoa::string("drawsBackground"));
}

void MacWebView::setFrame(const platform::Rect& frame) {
    view_->setFrame(toCGRect(frame));
}

}  // namespace stagehopper::macos_port
