#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/WebView.h"
#include "ports/macos/cocoa/webkit/WKWebView.h"

namespace stagehopper::macos_port {

class BridgeHandlerObject;
class PageGuard;

/// A WKWebView. Main thread only.
class MacWebView final : public platform::WebView {
public:
    MacWebView(const platform::Rect& frame, const platform::WebViewConfiguration& configuration);
    ~MacWebView() override;
    MacWebView(const MacWebView&) = delete;
    MacWebView& operator=(const MacWebView&) = delete;

    void loadFile(const std::filesystem::path& file,
                  const std::filesystem::path& readAccess) override;
    void evaluateJavaScript(std::string_view script) override;
    void setDrawsBackground(bool drawsBackground) override;
    void setFrame(const platform::Rect& frame) override;

    [[nodiscard]] cocoa::WKWebView view() const { return view_.get(); }

private:
    struct MessageRoute {
        std::string name;
        std::shared_ptr<platform::ScriptMessageHandler> handler;
        std::shared_ptr<BridgeHandlerObject> object;
    };

    void addMessageHandler(const std::string& name,
                           std::shared_ptr<platform::ScriptMessageHandler> handler);
    void addUserScript(std::string_view source, bool mainFrameOnly);
    /// Fills in the members above `view_`.
    [[nodiscard]] cocoa::Owned<cocoa::WKWebView> makeView(
        const platform::Rect& frame, const platform::WebViewConfiguration& configuration);

    std::shared_ptr<PageGuard> pageGuard_;
    std::vector<MessageRoute> messageRoutes_;
    cocoa::Owned<cocoa::WKUserContentController> content_;
    cocoa::Owned<cocoa::WKWebView> view_;
};

}  // namespace stagehopper::macos_port
