#pragma once

#include "platform/SystemLog.h"
#include "platform/UserInterface.h"

namespace stagehopper::linux_port {

class LinuxWindowOwner;

/// Makes GTK windows and WebKit views. Main thread only. `windowOwner` and `log` outlive what it
/// makes.
class LinuxUserInterface final : public platform::UserInterface {
public:
    LinuxUserInterface(LinuxWindowOwner& windowOwner, platform::SystemLog& log);

    std::shared_ptr<platform::Window> makeWindow(const platform::WindowOptions& options) override;
    std::shared_ptr<platform::Panel> makePanel(const platform::PanelOptions& options) override;
    /// The frame is ignored: a view fills its window.
    std::shared_ptr<platform::WebView> makeWebView(
        const platform::Rect& frame, const platform::WebViewConfiguration& configuration) override;

private:
    LinuxWindowOwner& windowOwner_;
    platform::SystemLog& log_;
};

}  // namespace stagehopper::linux_port
