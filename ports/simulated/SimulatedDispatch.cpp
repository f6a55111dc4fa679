#include "ports/simulated/SimulatedDispatch.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <stdexcept>

#include "ports/simulated/GlobalThread.h"

namespace stagehopper::simulated {

using std::chrono::nanoseconds;

struct SimulatedDispatch::Work {
    platform::Task task;
    /// Set for repeating work.
    std::optional<nanoseconds> interval;
    Lane lane = Lane::main;
    bool canceled = false;
    /// Set when it starts its last run.
    bool spent = false;
};

/// The application's handle, for a work item and for a timer.
class SimulatedDispatch::Handle final : public platform::WorkItem, public platform::Timer {
public:
    explicit Handle(std::shared_ptr<Work> work) : work_(std::move(work)) {}
    ~Handle() override { work_->canceled = true; }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    void cancel() override { work_->canceled = true; }
    void invalidate() override { work_->canceled = true; }

private:
    std::shared_ptr<Work> work_;
};

namespace {

nanoseconds toNanoseconds(platform::Duration duration) {
    return std::max(nanoseconds{0}, std::chrono::duration_cast<nanoseconds>(duration));
}

/// Marks the time in which a task runs.
class RunningSpan {
public:
    explicit RunningSpan(bool& running) : running_(running), wasRunning_(running) {
        running_ = true;
    }
    ~RunningSpan() { running_ = wasRunning_; }
    RunningSpan(const RunningSpan&) = delete;
    RunningSpan& operator=(const RunningSpan&) = delete;

private:
    bool& running_;
    bool wasRunning_;
};

class SimulatedSemaphore final : public platform::Semaphore {
public:
    explicit SimulatedSemaphore(SimulatedDispatch& dispatch) : dispatch_(dispatch) {}
    void signal() override { ++count_; }
    bool wait(platform::Duration limit) override {
        const bool signalled =
            dispatch_.blockUntil([this] { return count_ > 0; }, toNanoseconds(limit));
        if (signalled) --count_;
        return signalled;
    }

private:
    SimulatedDispatch& dispatch_;
    std::atomic<int> count_{0};
};

}  // namespace

SimulatedDispatch::SimulatedDispatch(SimulatedClock& clock) : clock_(clock) {}

SimulatedDispatch::~SimulatedDispatch() {
    close();
}

void SimulatedDispatch::asyncMain(platform::Task task) {
    asyncMainAfter({}, std::move(task));
}

void SimulatedDispatch::asyncMainAfter(platform::Duration delay, platform::Task task) {
    schedule(clock_.elapsed() + toNanoseconds(delay),
             std::make_shared<Work>(Work{std::move(task), {}}));
}

void SimulatedDispatch::asyncSystem(platform::Duration delay, platform::Task task) {
    schedule(clock_.elapsed() + toNanoseconds(delay),
             std::make_shared<Work>(Work{std::move(task), {}, Lane::beside}));
}

void SimulatedDispatch::asyncGlobal(platform::QualityOfService /*quality*/, platform::Task task) {
    asyncSystem({}, [this, task = std::move(task)]() mutable {
        globalThreads_.push_back(std::make_shared<GlobalThread>(std::move(task)));
        globalThreads_.back()->resume();
    });
}

std::shared_ptr<platform::Semaphore> SimulatedDispatch::makeSemaphore() {
    return std::make_shared<SimulatedSemaphore>(*this);
}

std::unique_ptr<platform::WorkItem> SimulatedDispatch::afterMain(platform::Duration delay,
                                                                 platform::Task task) {
    return scheduleWithHandle(clock_.elapsed() + toNanoseconds(delay),
                              std::make_shared<Work>(Work{std::move(task), {}}));
}

std::unique_ptr<platform::Timer> SimulatedDispatch::repeatMain(platform::Duration interval,
                                                               platform::Task task) {
    const auto every = std::max(nanoseconds{1}, toNanoseconds(interval));
    return scheduleWithHandle(clock_.elapsed() + every,
                              std::make_shared<Work>(Work{std::move(task), every}));
}

std::unique_ptr<SimulatedDispatch::Handle> SimulatedDispatch::scheduleWithHandle(
    nanoseconds due, std::shared_ptr<Work> work) {
    std::erase_if(handedOut_, [](const auto& weak) { return weak.expired(); });
    handedOut_.push_back(work);
    return std::make_unique<Handle>(schedule(due, std::move(work)));
}

std::size_t SimulatedDispatch::armed() const {
    return static_cast<std::size_t>(std::ranges::count_if(handedOut_, [](const auto& weak) {
        const auto work = weak.lock();
        return work && !work->canceled && !work->spent;
    }));
}

std::shared_ptr<SimulatedDispatch::Work> SimulatedDispatch::schedule(nanoseconds due,
                                                                     std::shared_ptr<Work> work) {
    const std::lock_guard lock(mutex_);
    if (!closed_) queue_.emplace(Key{due, posted_++}, work);
    return work;
}

std::shared_ptr<SimulatedDispatch::Work> SimulatedDispatch::takeDue(nanoseconds limit,
                                                                    nanoseconds& due,
                                                                    bool besideMain) {
    const std::lock_guard lock(mutex_);
    const auto first = std::ranges::find_if(queue_, [besideMain](const auto& entry) {
        return !besideMain || entry.second->lane == Lane::beside;
    });
    if (first == queue_.end() || first->first.first > limit) return nullptr;
    due = first->first.first;
    auto work = std::move(first->second);
    queue_.erase(first);
    return work;
}

void SimulatedDispatch::run(const std::shared_ptr<Work>& work, nanoseconds due) {
    if (work->canceled) return;
    if (due > clock_.elapsed()) clock_.passTime(due - clock_.elapsed());
    work->spent = !work->interval;
    {
        const RunningSpan span(running_);
        work->task();
        resumeUnblocked();
    }
    if (!work->interval || work->canceled) return;
    // Missed rounds are skipped.
    auto next = due + *work->interval;
    if (const auto now = clock_.elapsed(); next <= now) {
        next += (now - next) / *work->interval * *work->interval;
        if (next <= now) next += *work->interval;
    }
    schedule(next, work);
}

void SimulatedDispatch::resumeUnblocked() {
    // Each may post, signal or start others: start again until none can continue.
    for (bool again = true; again;) {
        again = false;
        for (const auto& thread : std::vector(globalThreads_)) {
            if (thread->isFinished() || !thread->canGoOn()) continue;
            thread->resume();
            again = true;
        }
    }
    std::erase_if(globalThreads_, [](const auto& thread) { return thread->isFinished(); });
}

bool SimulatedDispatch::blockUntil(const std::function<bool()>& done,
                                   std::optional<nanoseconds> limit) {
    std::optional<nanoseconds> deadline;
    if (limit) deadline = clock_.elapsed() + *limit;
    if (!GlobalThread::isCurrent()) return blockMainUntil(done, deadline);

    if (deadline) {
        // No other event may be due then, and the thread must still continue.
        schedule(*deadline, std::make_shared<Work>(Work{[] {}, {}, Lane::beside}));
    }
    GlobalThread::giveWayUntil(
        [&] { return done() || (deadline && clock_.elapsed() >= *deadline); });
    return done();
}

bool SimulatedDispatch::blockMainUntil(const std::function<bool()>& done,
                                       std::optional<nanoseconds> deadline) {
    constexpr nanoseconds never{std::numeric_limits<std::int64_t>::max()};
    const RunningSpan span(running_);
    resumeUnblocked();
    while (!done()) {
        nanoseconds due{};
        if (const auto work = takeDue(deadline.value_or(never), due, true)) {
            run(work, due);
        } else if (deadline) {
            if (*deadline > clock_.elapsed()) clock_.passTime(*deadline - clock_.elapsed());
            resumeUnblocked();
            return done();
        } else {
            throw std::logic_error("the main thread waits for what cannot come");
        }
    }
    return true;
}

bool SimulatedDispatch::sleepOnGlobalQueue(nanoseconds duration) {
    if (!GlobalThread::isCurrent()) return false;
    blockUntil([] { return false; }, duration);
    return true;
}

void SimulatedDispatch::requireIdle() const {
    if (running_) throw std::logic_error("time cannot be moved from inside a task");
}

void SimulatedDispatch::runReady() {
    requireIdle();
    nanoseconds due{};
    while (const auto work = takeDue(clock_.elapsed(), due)) run(work, due);
}

void SimulatedDispatch::advance(nanoseconds duration) {
    requireIdle();
    turnNested(duration);
}

void SimulatedDispatch::turnNested(nanoseconds duration) {
    const auto target = clock_.elapsed() + duration;
    nanoseconds due{};
    while (const auto work = takeDue(std::max(target, clock_.elapsed()), due)) run(work, due);
    if (target > clock_.elapsed()) clock_.passTime(target - clock_.elapsed());
}

void SimulatedDispatch::sleepFor(nanoseconds duration) {
    requireIdle();
    clock_.passTime(duration);
    runReady();
}

bool SimulatedDispatch::runNext() {
    requireIdle();
    nanoseconds due{};
    const auto work = takeDue(nanoseconds(std::numeric_limits<std::int64_t>::max()), due);
    if (!work) return false;
    run(work, due);
    return true;
}

void SimulatedDispatch::close() {
    {
        std::map<Key, std::shared_ptr<Work>>
            dropped;  // destroyed without the lock: tasks own objects
        const std::lock_guard lock(mutex_);
        closed_ = true;
        dropped.swap(queue_);
    }
    for (const auto& thread : std::exchange(globalThreads_, {})) thread->abandon();
}

}  // namespace stagehopper::simulated
