#pragma once

#include "platform/UserInterface.h"

namespace stagehopper::macos_port {

class AppControllerObject;

/// Makes the windows, panels and pages of AppKit and WebKit. Main thread only.
class MacUserInterface final : public platform::UserInterface {
public:
    /// `appController` outlives it and its windows.
    explicit MacUserInterface(AppControllerObject& appController);

    std::shared_ptr<platform::Window> makeWindow(const platform::WindowOptions& options) override;
    std::shared_ptr<platform::Panel> makePanel(const platform::PanelOptions& options) override;
    std::shared_ptr<platform::WebView> makeWebView(
        const platform::Rect& frame, const platform::WebViewConfiguration& configuration) override;

private:
    AppControllerObject& appController_;
};

}  // namespace stagehopper::macos_port
