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
/// Work is ordered by the time it is due and, among equals, by the order of posting. Only one piece
/// runs at any moment, so that every run is the same. Work of the global queues may block: it gives
/// way to the others until what it waits for has come. While the main thread blocks, all but its
/// own work goes on.
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

    /// Runs `task`, which must not block, beside the main thread: what the system's own threads do.
    void asyncSystem(platform::Duration delay, platform::Task task);
    /// Blocks whoever calls it until `done`, or until `limit` has passed; true when done. Waiting
    /// without a limit for what cannot come any more throws.
    bool blockUntil(const std::function<bool()>& done,
                    std::optional<std::chrono::nanoseconds> limit);
    /// Blocks a piece of global work for that long; false on any other thread, without blocking.
    bool sleepOnGlobalQueue(std::chrono::nanoseconds duration);

    /// Runs what is due, and what becomes due by running it, without letting time pass.
    void runReady();
    /// Lets time pass, running each piece of work when it is due.
    void advance(std::chrono::nanoseconds duration);
    /// The machine sleeps: time jumps, and what was missed is run late, a repeating timer once.
    void sleepFor(std::chrono::nanoseconds duration);
    /// Runs the next piece of work, letting time pass until it is due. False when there is none.
    bool runNext();
    /// What a call into the system does that turns the main loop before it returns: runs all that
    /// becomes due within that time, also from inside a task.
    void turnNested(std::chrono::nanoseconds duration);
    /// Drops all work, what blocks on a global queue included; what is posted from now on is
    /// dropped too.
    void close();

    /// Timers and work items that the application holds and that will still run.
    [[nodiscard]] std::size_t armed() const;

private:
    enum class Lane { main, beside };
    /// One piece of work. Shared with the handle that may cancel it.
    struct Work;
    class Handle;
    /// When it is due, and its place in the order of posting.
    using Key = std::pair<std::chrono::nanoseconds, std::uint64_t>;

    /// A task that moved time would run other tasks inside itself: that throws.
    void requireIdle() const;
    std::shared_ptr<Work> schedule(std::chrono::nanoseconds due, std::shared_ptr<Work> work);
    std::unique_ptr<Handle> scheduleWithHandle(std::chrono::nanoseconds due,
                                               std::shared_ptr<Work> work);
    /// With `besideMain`, work of the main thread is left alone.
    std::shared_ptr<Work> takeDue(std::chrono::nanoseconds limit, std::chrono::nanoseconds& due,
                                  bool besideMain = false);
    void run(const std::shared_ptr<Work>& work, std::chrono::nanoseconds due);
    /// Blocked global work that need not wait any longer goes on.
    void resumeUnblocked();
    bool blockMainUntil(const std::function<bool()>& done,
                        std::optional<std::chrono::nanoseconds> deadline);

    SimulatedClock& clock_;
    bool running_ = false;

    std::mutex mutex_;
    std::map<Key, std::shared_ptr<Work>> queue_;
    std::uint64_t posted_ = 0;
    bool closed_ = false;
    /// What the application got a handle for. Main thread only.
    std::vector<std::weak_ptr<Work>> handedOut_;
    /// Global work that has started and not finished.
    std::vector<std::shared_ptr<GlobalThread>> globalThreads_;
};

}  // namespace stagehopper::simulated
