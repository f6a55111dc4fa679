#include "ports/linux/processes/HandlerGate.h"

namespace stagehopper::linux_port {

void HandlerGate::pass(platform::TerminationHandler handler, std::int32_t status) {
    std::unique_lock lock(mutex_);
    if (closed_ || !handler) return;
    ++inside_;
    lock.unlock();
    handler(status);
    // The handler's captures are also destroyed inside the gate.
    handler = nullptr;
    lock.lock();
    if (--inside_ == 0) emptied_.notify_all();
}

void HandlerGate::close() {
    const std::scoped_lock lock(mutex_);
    closed_ = true;
}

void HandlerGate::waitUntilEmpty() {
    std::unique_lock lock(mutex_);
    emptied_.wait(lock, [this] { return inside_ == 0; });
}

bool HandlerGate::isEmpty() {
    const std::scoped_lock lock(mutex_);
    return inside_ == 0;
}

}  // namespace stagehopper::linux_port
