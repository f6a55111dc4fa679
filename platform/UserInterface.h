#pragma once

#include <memory>

#include "platform/Geometry.h"
#include "platform/Panel.h"
#include "platform/WebView.h"
#include "platform/Window.h"

namespace stagehopper::platform {

/// Makes windows, panels and views. Main thread only. Never returns null.
class UserInterface {
public:
    virtual ~UserInterface() = default;
    virtual std::shared_ptr<Window> makeWindow(const WindowOptions& options) = 0;
    virtual std::shared_ptr<Panel> makePanel(const PanelOptions& options) = 0;
    virtual std::shared_ptr<WebView> makeWebView(const Rect& frame,
                                                 const WebViewConfiguration& configuration) = 0;
};

}  // namespace stagehopper::platform
