#include "ports/linux/gtk/LinuxUserInterface.h"

#include "ports/linux/gtk/LinuxPanel.h"
#include "ports/linux/gtk/LinuxWebView.h"
#include "ports/linux/gtk/LinuxWindow.h"
#include "ports/linux/gtk/PageLanguages.h"

namespace stagehopper::linux_port {

LinuxUserInterface::LinuxUserInterface(LinuxWindowOwner& windowOwner, platform::SystemLog& log)
    : windowOwner_(windowOwner), log_(log) {
    tellPagesTheUsersLanguages();
}

std::shared_ptr<platform::Window> LinuxUserInterface::makeWindow(
    const platform::WindowOptions& options) {
    return std::make_shared<LinuxWindow>(windowOwner_, options);
}

std::shared_ptr<platform::Panel> LinuxUserInterface::makePanel(
    const platform::PanelOptions& options) {
    return std::make_shared<LinuxPanel>(options, log_);
}

std::shared_ptr<platform::WebView> LinuxUserInterface::makeWebView(
    const platform::Rect& /*frame*/, const platform::WebViewConfiguration& configuration) {
    return std::make_shared<LinuxWebView>(configuration, log_);
}

}  // namespace stagehopper::linux_port
