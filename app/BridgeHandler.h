#pragma once

#include <memory>

#include "platform/WebView.h"

namespace stagehopper {

class AppController;

/// Receives the panel page's posts to "bridge" and passes texts to the controller.
/// Main thread only.
class BridgeHandler final : public platform::ScriptMessageHandler {
public:
    /// Weak, since the controller holds the web view and the web view holds this handler.
    std::weak_ptr<AppController> app;

    void didReceive(const platform::ScriptMessage& message) override;
};

}  // namespace stagehopper
