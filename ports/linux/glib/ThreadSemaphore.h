#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/Semaphore.h"

namespace stagehopper::linux_port {

/// A counting semaphore. Any thread.
class ThreadSemaphore final : public platform::Semaphore {
public:
    void signal() override;
    bool wait(platform::Duration limit) override;

private:
    std::mutex mutex_;
    std::condition_variable signaled_;
    unsigned long signals_ = 0;
};

}  // namespace stagehopper::linux_port
