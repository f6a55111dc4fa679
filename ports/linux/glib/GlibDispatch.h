#pragma once

#include <memory>

#include "platform/Dispatch.h"
#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/glib/TaskQueue.h"
#include "ports/linux/glib/WorkerThreads.h"

namespace stagehopper::linux_port {

/// Queues on GLib's main loop. The main queue takes one task per round of the loop and has the
/// priority of user input, so that neither can starve the other. Any thread may post.
class GlibDispatch final : public platform::Dispatch {
public:
    GlibDispatch();
    /// Waits for the global tasks that run.
    ~GlibDispatch() override = default;

    void asyncMain(platform::Task task) override;
    void asyncGlobal(platform::QualityOfService quality, platform::Task task) override;
    std::unique_ptr<platform::WorkItem> afterMain(platform::Duration delay,
                                                  platform::Task task) override;
    std::unique_ptr<platform::Timer> repeatMain(platform::Duration interval,
                                                platform::Task task) override;
    void asyncMainAfter(platform::Duration delay, platform::Task task) override;
    std::shared_ptr<platform::Semaphore> makeSemaphore() override;

    /// Starts no more tasks: queued and later tasks are dropped.
    void close();
    /// Whether a global task runs. It cannot be stopped, and it may be using the port.
    [[nodiscard]] bool hasRunningGlobalTasks() const { return workers_.areBusy(); }

private:
    static int runNextTask(void* queue) noexcept;

    SourcePointer source_;
    std::shared_ptr<TaskQueue> queue_;
    WorkerThreads workers_;
};

}  // namespace stagehopper::linux_port
