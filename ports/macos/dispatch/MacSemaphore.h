#pragma once

#include "platform/Semaphore.h"
#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"

namespace stagehopper::macos_port {

/// A semaphore of Grand Central Dispatch. Any thread.
class MacSemaphore final : public platform::Semaphore {
public:
    MacSemaphore();
    ~MacSemaphore() override;
    MacSemaphore(const MacSemaphore&) = delete;
    MacSemaphore& operator=(const MacSemaphore&) = delete;

    void signal() override;
    bool wait(platform::Duration limit) override;

private:
    const cocoa::dispatch_semaphore_t semaphore_;
};

}  // namespace stagehopper::macos_port
