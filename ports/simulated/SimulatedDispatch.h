#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Dispatch.h"
#include "ports/simulated/SimulatedClock.h"

namespace stagehopper::simulated {

class GlobalThread;

/// Queues and timers in virtual time. Posting: any thread. Running: the test's thread, which plays
/// the main thread.
///
/// Work is ordered by its due time and, among equals, by the order of posting. Only one piece runs
/// at a time, so that every run is the same. Work of the global queues may block; other work then
/// continues until the wait is over. While the main thread blocks, all other work continues.
class SimulatedDispatch final : public platform::Dispatch {
public:
    explicit SimulatedDispatch(SimulatedClock& clock);
    ~SimulatedDispatch() override;

    void asyncMain(platform::Task task) override;
    void asyncGlobal(platform::QualityOfService quality, platform::Task task) override;
    std::unique_ptr<platform::WorkItem> afterMain(platform::Duration delay,
                                                  platform::Task task) override;
    std::unique_ptr<platform::Timer> repeatMain(platform::Duration interval,
                                                platform::Task task) override;
    void asyncMainAfter(platform::Duration delay, platform::Task task) override;
    std::shared_ptr<platform::Semaphore> makeSemaphore() override;

    /// Runs `task`, which must not block, like a thread of the system beside the main thread.
    void asyncSystem(platform::Duration delay, platform::Task task);
    /// Blocks the caller until `done` holds or `limit` has passed; returns whether it holds. Throws
    /// if there is no limit and `done` can no longer become true.
    bool blockUntil(const std::function<bool()>& done,
                    std::optional<std::chrono::nanoseconds> limit);
    /// Blocks a piece of global work for this time. On other threads returns false at once.
    bool sleepOnGlobalQueue(std::chrono::nanoseconds duration);

    /// Runs due work, including work that it makes due, without letting time pass.
    void runReady();
    /// Lets time pass and runs each piece of work when it is due.
    void advance(std::chrono::nanoseconds duration);
    /// The machine sleeps: time jumps, and missed work runs late, a repeating timer only once.
    void sleepFor(std::chrono::nanoseconds duration);
    /// Lets time pass until the next piece of work is due and runs it. False if there is none.
    bool runNext();
    /// Acts like a system call that runs a nested main loop: runs all work that becomes due within
    /// this time. Allowed inside a task.
    void turnNested(std::chrono::nanoseconds duration);
    /// Drops all work, including blocked global work and work that is posted later.
    void close();

    /// The number of timers and work items that the application holds and that will still run.
    [[nodiscard]] std::size_t armed() const;

private:
    enum class Lane { main, beside };
    /// One piece of work. Shared with the handle that may cancel it.
    struct Work;
    class Handle;
    /// Its due time and its number in the order of posting.
    using Key = std::pair<std::chrono::nanoseconds, std::uint64_t>;

    /// Throws inside a task: a task that moves time would run other tasks inside itself.
    void requireIdle() const;
    std::shared_ptr<Work> schedule(std::chrono::nanoseconds due, std::shared_ptr<Work> work);
    std::unique_ptr<Handle> scheduleWithHandle(std::chrono::nanoseconds due,
                                               std::shared_ptr<Work> work);
    /// With `besideMain`, skips the main thread's work.
    std::shared_ptr<Work> takeDue(std::chrono::nanoseconds limit, std::chrono::nanoseconds& due,
                                  bool besideMain = false);
    void run(const std::shared_ptr<Work>& work, std::chrono::nanoseconds due);
    /// Resumes blocked global work whose wait is over.
    void resumeUnblocked();
    bool blockMainUntil(const std::function<bool()>& done,
                        std::optional<std::chrono::nanoseconds> deadline);

    SimulatedClock& clock_;
    bool running_ = false;

    std::mutex mutex_;
    std::map<Key, std::shared_ptr<Work>> queue_;
    std::uint64_t posted_ = 0;
    bool closed_ = false;
    /// Work for which the application has a handle. Main thread only.
    std::vector<std::weak_ptr<Work>> handedOut_;
    /// Global work that has started and has not finished.
    std::vector<std::shared_ptr<GlobalThread>> globalThreads_;
};

}  // namespace stagehopper::simulated
