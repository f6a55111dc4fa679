#pragma once

#include <functional>
#include <memory>

#include "platform/Clock.h"
#include "platform/Semaphore.h"

namespace stagehopper::platform {

using Task = std::function<void()>;

/// A pending task of the main queue. Main thread only. Dropping it cancels it.
class WorkItem {
public:
    virtual ~WorkItem() = default;
    /// Prevents the task from starting. Does nothing if it runs or has run.
    virtual void cancel() = 0;
};

/// A repeating main-thread timer. Main thread only. Dropping it invalidates it, even inside its own
/// callback.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void invalidate() = 0;
};

enum class QualityOfService { userInitiated, standard };

/// Queues and timers. Any thread may post; tasks for the main queue run on the main thread, one
/// after another, in the order of posting, and never inside the posting call. Tasks that are still
/// queued when the application ends are dropped. The loop may run once more before that, so
/// shut-down must cancel what must not run. An exception that leaves a task ends the program.
class Dispatch {
public:
    virtual ~Dispatch() = default;
    virtual void asyncMain(Task task) = 0;
    /// Runs `task` on a thread of a shared pool. The task may block.
    virtual void asyncGlobal(QualityOfService quality, Task task) = 0;
    /// Runs `task` on the main queue `delay` from now. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<WorkItem> afterMain(Duration delay, Task task) = 0;
    /// Runs `task` on the main thread every `interval`, first one interval from now, also while
    /// menus are open. Missed rounds are skipped. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeatMain(Duration interval, Task task) = 0;
    /// Runs `task` on the main queue `delay` from now; it cannot be canceled. Any thread.
    virtual void asyncMainAfter(Duration delay, Task task) = 0;
    /// Any thread.
    [[nodiscard]] virtual std::shared_ptr<Semaphore> makeSemaphore() = 0;
};

}  // namespace stagehopper::platform
