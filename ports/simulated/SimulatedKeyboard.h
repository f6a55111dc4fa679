#pragma once

#include "platform/KeyboardEvents.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedClock.h"
#include "ports/simulated/SimulatedWorkspace.h"

namespace stagehopper::simulated {

/// Keys to the simulated programs. Main thread only.
class SimulatedKeyboard final : public platform::KeyboardEvents {
public:
    SimulatedKeyboard(Journal& journal, const SimulatedClock& clock, SimulatedWorkspace& workspace)
        : journal_(journal), clock_(clock), workspace_(workspace) {}

    std::unique_ptr<platform::KeyboardEvent> makeKeyboardEvent(platform::VirtualKey key,
                                                               bool keyDown) override;
    platform::Outcome postToProcess(platform::Pid process,
                                    const platform::KeyboardEvent& event) override;
    platform::Outcome postToFocus(const platform::KeyboardEvent& event) override;

    bool canMakeEvents = true;

private:
    platform::Outcome deliver(RunningProgram& program, const platform::KeyboardEvent& event,
                              const std::string& where);

    Journal& journal_;
    const SimulatedClock& clock_;
    SimulatedWorkspace& workspace_;
};

}  // namespace stagehopper::simulated
