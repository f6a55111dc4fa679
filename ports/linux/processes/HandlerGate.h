#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/ChildProcess.h"

namespace stagehopper::linux_port {

/// Lets termination handlers pass until it is closed, so that no handler uses services that are
/// gone. Any thread. Shared by the processes, which outlive their maker.
class HandlerGate {
public:
    /// Calls the handler, unless the gate is closed; then drops it.
    void pass(platform::TerminationHandler handler, std::int32_t status);
    /// No further handler starts.
    void close();
    /// Not from inside a handler.
    void waitUntilEmpty();
    [[nodiscard]] bool isEmpty();

private:
    std::mutex mutex_;
    std::condition_variable emptied_;
    int inside_ = 0;
    bool closed_ = false;
};

}  // namespace stagehopper::linux_port
