#pragma once

#include <memory>

#include "platform/Accessibility.h"

namespace stagehopper::linux_port {

class AccessibilityBus;
class TrustDialog;
class X11Desktop;

/// Other programs' interfaces through the accessibility bus. Main thread only. `desktop` outlives
/// it: it provides the windows of programs that are not on that bus.
///
/// Connects when it is made, so that no slide step waits for the connection.
class AtSpiAccessibility final : public platform::Accessibility {
public:
    explicit AtSpiAccessibility(X11Desktop& desktop);
    ~AtSpiAccessibility() override;

    bool isProcessTrusted() override;
    void requestTrust() override;
    platform::UIElementRef applicationElement(platform::Pid process) override;

private:
    X11Desktop& desktop_;
    std::shared_ptr<AccessibilityBus> bus_;
    std::unique_ptr<TrustDialog> dialog_;
};

}  // namespace stagehopper::linux_port
