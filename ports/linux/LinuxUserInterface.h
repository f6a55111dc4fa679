#pragma once

#include "platform/UserInterface.h"

namespace stagehopper::linux_port {

class LinuxApplication;

/// Makes GTK windows and WebKit views. Main thread only. `application` outlives what it makes.
class LinuxUserInterface final : public platform::UserInterface {
public:
    explicit LinuxUserInterface(LinuxApplication& application) : application_(application) {}

    std::shared_ptr<platform::Window> makeWindow(const platform::WindowOptions& options) override;
    /// The frame has no say: a view fills its window.
    std::shared_ptr<platform::WebView> makeWebView(
        const platform::Rect& frame, const platform::WebViewConfiguration& configuration) override;

private:
    LinuxApplication& application_;
};

}  // namespace stagehopper::linux_port
