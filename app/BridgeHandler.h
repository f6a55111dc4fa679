#pragma once

#include <memory>

#include "platform/WebView.h"

namespace stagehopper {

class AppController;

/// Receives what the panel page posts to "bridge" and hands texts to the controller.
/// Main thread only.
class BridgeHandler final : public platform::ScriptMessageHandler {
public:
    /// Weak, since the controller holds the web view and the web view holds this handler.
    std::weak_ptr<AppController> app;

    void didReceive(const platform::ScriptMessage& message) override;
};

}  // namespace stagehopper
