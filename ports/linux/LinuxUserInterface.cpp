#include "ports/linux/LinuxUserInterface.h"

#include "ports/linux/LinuxWebView.h"
#include "ports/linux/LinuxWindow.h"

namespace stagehopper::linux_port {

std::shared_ptr<platform::Window> LinuxUserInterface::makeWindow(
    const platform::WindowOptions& options) {
    return std::make_shared<LinuxWindow>(application_, options);
}

std::shared_ptr<platform::WebView> LinuxUserInterface::makeWebView(
    const platform::Rect& /*frame*/, const platform::WebViewConfiguration& configuration) {
    return std::make_shared<LinuxWebView>(configuration);
}

}  // namespace stagehopper::linux_port
