#pragma once

#include "platform/KeyboardEvents.h"

namespace stagehopper::macos_port {

/// Keys through Core Graphics. Main thread only. The system does not report whether a posted key
/// arrived, and silently drops it while this process is not trusted, so posting always counts as
/// done.
class MacKeyboardEvents final : public platform::KeyboardEvents {
public:
    std::unique_ptr<platform::KeyboardEvent> makeKeyboardEvent(platform::VirtualKey key,
                                                               bool keyDown) override;
    platform::Outcome postToProcess(platform::Pid process,
                                    const platform::KeyboardEvent& event) override;
    platform::Outcome postToFocus(const platform::KeyboardEvent& event) override;
};

}  // namespace stagehopper::macos_port
