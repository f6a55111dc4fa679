#pragma once

#include "platform/Dispatch.h"

namespace stagehopper::macos_port {

/// Queues of Grand Central Dispatch, timers of the main run loop. Threads: as the interface
/// documents for each member. Tasks run in an autorelease pool.
class MacDispatch final : public platform::Dispatch {
public:
    void asyncMain(platform::Task task) override;
    void asyncGlobal(platform::QualityOfService quality, platform::Task task) override;
    std::unique_ptr<platform::WorkItem> afterMain(platform::Duration delay,
                                                  platform::Task task) override;
    std::unique_ptr<platform::Timer> repeatMain(platform::Duration interval,
                                                platform::Task task) override;
    void asyncMainAfter(platform::Duration delay, platform::Task task) override;
    std::shared_ptr<platform::Semaphore> makeSemaphore() override;
};

}  // namespace stagehopper::macos_port
