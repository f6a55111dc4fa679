#pragma once

#include "platform/Accessibility.h"

namespace stagehopper::macos_port {

/// The accessibility interface. Main thread only.
class MacAccessibility final : public platform::Accessibility {
public:
    /// Limits how long a call waits for another program, for the whole process.
    MacAccessibility();

    bool isProcessTrusted() override;
    void requestTrust() override;
    platform::UIElementRef applicationElement(platform::Pid process) override;
};

}  // namespace stagehopper::macos_port
