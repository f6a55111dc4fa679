#pragma once

#include "platform/Accessibility.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedWorkspace.h"

namespace stagehopper::simulated {

/// The programs' windows and menus as elements. Main thread only. Elements of a program that has
/// quit answer nothing.
class SimulatedAccessibility final : public platform::Accessibility {
public:
    SimulatedAccessibility(Journal& journal, SimulatedWorkspace& workspace)
        : journal_(journal), workspace_(workspace) {}

    bool isProcessTrusted() override { return trusted; }
    void requestTrust() override;
    platform::UIElementRef applicationElement(platform::Pid process) override;

    bool trusted = true;
    int prompts = 0;

private:
    Journal& journal_;
    SimulatedWorkspace& workspace_;
};

}  // namespace stagehopper::simulated
