#pragma once

#include <memory>

#include "ports/macos/appkit/AppControllerObject.h"
#include "ports/macos/cocoa/appkit/NSWindow.h"

namespace stagehopper::macos_port {

class MacWebView;

/// An NSWindow. Main thread only. After it closes, every call does nothing. It notices a close by
/// the user or the system only once it has a delegate.
class MacWindow final : public ReportedWindow {
public:
    /// `appController` becomes its delegate and outlives it.
    MacWindow(AppControllerObject& appController, const platform::WindowOptions& options);
    ~MacWindow() override;
    MacWindow(const MacWindow&) = delete;
    MacWindow& operator=(const MacWindow&) = delete;

    void setTitle(std::string_view title) override;
    /// Of the whole window, as in AppKit: the title bar is included.
    void setMinimumSize(platform::Size size) override;
    void setContentView(const std::shared_ptr<platform::WebView>& view) override;
    void center() override;
    void setDelegate(std::weak_ptr<platform::WindowDelegate> delegate) override;
    void makeKeyAndOrderFront() override;

    void didBeginClosing() override;

private:
    AppControllerObject& appController_;
    cocoa::Owned<cocoa::NSWindow> window_;
    std::shared_ptr<MacWebView> content_;
    bool open_ = true;
};

}  // namespace stagehopper::macos_port
