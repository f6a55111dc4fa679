#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <utility>

#include "platform/Dispatch.h"
#include "ports/simulated/SimulatedClock.h"

namespace stagehopper::simulated {

/// Queues and timers in virtual time. Posting: any thread. Running: the test's thread, which plays
/// the main thread.
///
/// Work is ordered by the time it is due and, among equals, by the order of posting. Work of the
/// global queues is run in the same order, one piece after another: what blocks there blocks the
/// whole desktop.
class SimulatedDispatch final : public platform::Dispatch {
public:
    explicit SimulatedDispatch(SimulatedClock& clock) : clock_(clock) {}

    void asyncMain(platform::Task task) override;
    void asyncGlobal(platform::QualityOfService quality, platform::Task task) override;
    std::unique_ptr<platform::WorkItem> afterMain(platform::Duration delay,
                                                  platform::Task task) override;
    std::unique_ptr<platform::Timer> repeatMain(platform::Duration interval,
                                                platform::Task task) override;

    /// Runs what is due, and what becomes due by running it, without letting time pass.
    void runReady();
    /// Lets time pass, running each piece of work when it is due.
    void advance(std::chrono::nanoseconds duration);
    /// The machine sleeps: time jumps, and what was missed is run late, a repeating timer once.
    void sleepFor(std::chrono::nanoseconds duration);
    /// Runs the next piece of work, letting time pass until it is due. False when there is none.
    bool runNext();
    /// Drops all work; what is posted from now on is dropped too.
    void close();

private:
    /// One piece of work. Shared with the handle that may cancel it.
    struct Work;
    class Handle;
    /// When it is due, and its place in the order of posting.
    using Key = std::pair<std::chrono::nanoseconds, std::uint64_t>;

    /// A task that moved time would run other tasks inside itself: that throws.
    void requireIdle() const;
    std::shared_ptr<Work> schedule(std::chrono::nanoseconds due, std::shared_ptr<Work> work);
    std::shared_ptr<Work> takeDue(std::chrono::nanoseconds limit, std::chrono::nanoseconds& due);
    void run(const std::shared_ptr<Work>& work, std::chrono::nanoseconds due);

    SimulatedClock& clock_;
    bool running_ = false;

    std::mutex mutex_;
    std::map<Key, std::shared_ptr<Work>> queue_;
    std::uint64_t posted_ = 0;
    bool closed_ = false;
};

}  // namespace stagehopper::simulated
