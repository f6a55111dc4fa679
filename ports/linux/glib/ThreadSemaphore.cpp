#include "ports/linux/glib/ThreadSemaphore.h"

#include "ports/linux/glib/WaitingTime.h"

namespace stagehopper::linux_port {

void ThreadSemaphore::signal() {
    const std::scoped_lock lock(mutex_);
    ++signals_;
    signaled_.notify_one();
}

bool ThreadSemaphore::wait(platform::Duration limit) {
    const auto end = std::chrono::steady_clock::now() + waitingTime(limit);
    std::unique_lock lock(mutex_);
    if (!signaled_.wait_until(lock, end, [this] { return signals_ > 0; })) return false;
    --signals_;
    return true;
}

}  // namespace stagehopper::linux_port
