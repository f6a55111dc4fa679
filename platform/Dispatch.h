#pragma once

#include <functional>
#include <memory>

#include "platform/Clock.h"
#include "platform/Semaphore.h"

namespace stagehopper::platform {

using Task = std::function<void()>;

/// A piece of main-queue work that has not run yet. Main thread only. Dropping it cancels it.
class WorkItem {
public:
    virtual ~WorkItem() = default;
    /// The work will not start any more; harmless when it has run or is running.
    virtual void cancel() = 0;
};

/// A repeating main-thread timer. Main thread only. Dropping it invalidates it, also from inside
/// its own callback.
class Timer {
public:
    virtual ~Timer() = default;
    virtual void invalidate() = 0;
};

enum class QualityOfService { userInitiated, standard };

/// Queues and timers. Any thread may post; tasks for the main queue run on the main thread, one
/// after another, in the order of posting, and never from inside the posting call. What is still
/// queued when the application ends is dropped without being run; until then the loop may turn
/// once more, so that shutting down must cancel what is not to run. An exception that leaves a task
/// ends the program.
class Dispatch {
public:
    virtual ~Dispatch() = default;
    virtual void asyncMain(Task task) = 0;
    /// Runs `task` on a thread of a shared pool; blocking is allowed there.
    virtual void asyncGlobal(QualityOfService quality, Task task) = 0;
    /// Runs `task` on the main queue `delay` from now. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<WorkItem> afterMain(Duration delay, Task task) = 0;
    /// Runs `task` on the main thread every `interval`, the first time one interval from now, also
    /// while menus are open. Missed rounds are not made up for. Main thread only.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeatMain(Duration interval, Task task) = 0;
    /// Runs `task` on the main queue `delay` from now; nobody can cancel it. Any thread.
    virtual void asyncMainAfter(Duration delay, Task task) = 0;
    /// Any thread.
    [[nodiscard]] virtual std::shared_ptr<Semaphore> makeSemaphore() = 0;
};

}  // namespace stagehopper::platform
