#include "ports/macos/appkit/MacUserInterface.h"

#include "ports/macos/appkit/MacPanel.h"
#include "ports/macos/appkit/MacWebView.h"
#include "ports/macos/appkit/MacWindow.h"

namespace stagehopper::macos_port {

MacUserInterface::MacUserInterface(AppControllerObject& appController)
    : appController_(appController) {}

std::shared_ptr<platform::Window> MacUserInterface::makeWindow(
    const platform::WindowOptions& options) {
    return std::make_shared<MacWindow>(appController_, options);
}

std::shared_ptr<platform::Panel> MacUserInterface::makePanel(
    const platform::PanelOptions& options) {
    return std::make_shared<MacPanel>(options);
}

std::shared_ptr<platform::WebView> MacUserInterface::makeWebView(
    const platform::Rect& frame, const platform::WebViewConfiguration& configuration) {
    return std::make_shared<MacWebView>(frame, configuration);
}

}  // namespace stagehopper::macos_port
