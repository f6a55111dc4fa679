#pragma once

#include "platform/Accessibility.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedClock.h"
#include "ports/simulated/SimulatedDispatch.h"
#include "ports/simulated/SimulatedWorkspace.h"

namespace stagehopper::simulated {

/// The surroundings in which a press takes effect.
struct Machine {
    Journal& journal;
    SimulatedClock& clock;
    SimulatedDispatch& dispatch;
};

/// The programs' windows and menus as elements. Main thread only. Elements of a program that has
/// quit have no attributes.
class SimulatedAccessibility final : public platform::Accessibility {
public:
    SimulatedAccessibility(const Machine& machine, SimulatedWorkspace& workspace)
        : machine_(machine), workspace_(workspace) {}

    bool isProcessTrusted() override { return trusted; }
    void requestTrust() override;
    platform::UIElementRef applicationElement(platform::Pid process) override;

    bool trusted = true;
    int prompts = 0;

private:
    Machine machine_;
    SimulatedWorkspace& workspace_;
};

}  // namespace stagehopper::simulated
