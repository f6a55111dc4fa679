#pragma once

#include "platform/Dispatch.h"
#include "ports/macos/cocoa/foundation/NSTimer.h"

namespace stagehopper::macos_port {

/// An NSTimer of the main run loop. Main thread only.
class MacTimer final : public platform::Timer {
public:
    MacTimer(platform::Duration interval, platform::Task task);
    ~MacTimer() override;
    MacTimer(const MacTimer&) = delete;
    MacTimer& operator=(const MacTimer&) = delete;

    void invalidate() override;

private:
    /// The timer's block holds it weakly.
    std::shared_ptr<platform::Task> task_;
    cocoa::Owned<cocoa::NSTimer> timer_;
};

}  // namespace stagehopper::macos_port
