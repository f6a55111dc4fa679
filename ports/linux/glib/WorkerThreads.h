#pragma once

#include <atomic>
#include <memory>

#include "platform/Dispatch.h"

// GLib's own name for its thread pools.
struct _GThreadPool;

namespace stagehopper::linux_port {

/// Threads for work that may block. Their number grows with the work, up to a limit far above our
/// use. Any thread.
class WorkerThreads {
public:
    WorkerThreads();
    /// Waits for the tasks that run.
    ~WorkerThreads();
    WorkerThreads(const WorkerThreads&) = delete;
    WorkerThreads& operator=(const WorkerThreads&) = delete;

    void post(platform::Task task);
    /// Drops the tasks that have not started, now and later.
    void close() { closed_ = true; }
    [[nodiscard]] bool areBusy() const { return running_ > 0; }

private:
    static void runTask(void* task, void* self) noexcept;
    static void dropTask(void* task) noexcept;

    std::atomic<bool> closed_{false};
    std::atomic<int> running_{0};
    _GThreadPool* pool_;
};

}  // namespace stagehopper::linux_port
