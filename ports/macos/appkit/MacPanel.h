#pragma once

#include <memory>

#include "platform/Panel.h"
#include "ports/macos/cocoa/appkit/NSPanel.h"

namespace stagehopper::macos_port {

class MacWebView;

/// An NSPanel with exactly the given style: without a title bar it never becomes the key window.
/// Main thread only.
class MacPanel final : public platform::Panel {
public:
    explicit MacPanel(const platform::PanelOptions& options);
    ~MacPanel() override;
    MacPanel(const MacPanel&) = delete;
    MacPanel& operator=(const MacPanel&) = delete;

    void setContentView(const std::shared_ptr<platform::WebView>& view) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void setFrame(const platform::Rect& frame) override;

private:
    cocoa::Owned<cocoa::NSPanel> panel_;
    std::shared_ptr<MacWebView> content_;
    bool visible_ = false;
};

}  // namespace stagehopper::macos_port
