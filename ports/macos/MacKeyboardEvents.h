#pragma once

#include "platform/KeyboardEvents.h"

namespace stagehopper::macos_port {

/// Keys by Core Graphics. Main thread only. The system tells nobody whether a posted key has
/// arrived, and drops it silently while this process is not trusted: posting is always done.
class MacKeyboardEvents final : public platform::KeyboardEvents {
public:
    std::unique_ptr<platform::KeyboardEvent> makeKeyboardEvent(platform::VirtualKey key,
                                                               bool keyDown) override;
    platform::Outcome postToProcess(platform::Pid process,
                                    const platform::KeyboardEvent& event) override;
    platform::Outcome postToFocus(const platform::KeyboardEvent& event) override;
};

}  // namespace stagehopper::macos_port
