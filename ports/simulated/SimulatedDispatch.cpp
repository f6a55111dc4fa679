#include "ports/simulated/SimulatedDispatch.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>

namespace stagehopper::simulated {

using std::chrono::nanoseconds;

struct SimulatedDispatch::Work {
    platform::Task task;
    /// Set for repeating work.
    std::optional<nanoseconds> interval;
    bool cancelled = false;
};

/// What the application holds; work item and timer alike.
class SimulatedDispatch::Handle final : public platform::WorkItem, public platform::Timer {
public:
    explicit Handle(std::shared_ptr<Work> work) : work_(std::move(work)) {}
    ~Handle() override { work_->cancelled = true; }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    void cancel() override { work_->cancelled = true; }
    void invalidate() override { work_->cancelled = true; }

private:
    std::shared_ptr<Work> work_;
};

namespace {

nanoseconds toNanoseconds(platform::Duration duration) {
    return std::max(nanoseconds{0}, std::chrono::duration_cast<nanoseconds>(duration));
}

/// Marks the span in which a task runs.
class RunningSpan {
public:
    explicit RunningSpan(bool& running) : running_(running) { running_ = true; }
    ~RunningSpan() { running_ = false; }
    RunningSpan(const RunningSpan&) = delete;
    RunningSpan& operator=(const RunningSpan&) = delete;

private:
    bool& running_;
};

}  // namespace

void SimulatedDispatch::asyncMain(platform::Task task) {
    schedule(clock_.elapsed(), std::make_shared<Work>(Work{std::move(task), {}}));
}

void SimulatedDispatch::asyncGlobal(platform::QualityOfService /*quality*/, platform::Task task) {
    asyncMain(std::move(task));
}

std::unique_ptr<platform::WorkItem> SimulatedDispatch::afterMain(platform::Duration delay,
                                                                 platform::Task task) {
    return std::make_unique<Handle>(schedule(clock_.elapsed() + toNanoseconds(delay),
                                             std::make_shared<Work>(Work{std::move(task), {}})));
}

std::unique_ptr<platform::Timer> SimulatedDispatch::repeatMain(platform::Duration interval,
                                                               platform::Task task) {
    const auto every = std::max(nanoseconds{1}, toNanoseconds(interval));
    return std::make_unique<Handle>(
        schedule(clock_.elapsed() + every, std::make_shared<Work>(Work{std::move(task), every})));
}

std::shared_ptr<SimulatedDispatch::Work> SimulatedDispatch::schedule(nanoseconds due,
                                                                     std::shared_ptr<Work> work) {
    const std::lock_guard lock(mutex_);
    if (!closed_) queue_.emplace(Key{due, posted_++}, work);
    return work;
}

std::shared_ptr<SimulatedDispatch::Work> SimulatedDispatch::takeDue(nanoseconds limit,
                                                                    nanoseconds& due) {
    const std::lock_guard lock(mutex_);
    const auto first = queue_.begin();
    if (first == queue_.end() || first->first.first > limit) return nullptr;
    due = first->first.first;
    auto work = std::move(first->second);
    queue_.erase(first);
    return work;
}

void SimulatedDispatch::run(const std::shared_ptr<Work>& work, nanoseconds due) {
    if (work->cancelled) return;
    if (due > clock_.elapsed()) clock_.passTime(due - clock_.elapsed());
    const RunningSpan span(running_);
    if (!work->interval) {
        work->task();
        return;
    }
    work->task();
    if (work->cancelled) return;
    // Rounds that went by meanwhile are not made up for.
    auto next = due + *work->interval;
    if (const auto now = clock_.elapsed(); next <= now) {
        next += (now - next) / *work->interval * *work->interval;
        if (next <= now) next += *work->interval;
    }
    schedule(next, work);
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
    std::map<Key, std::shared_ptr<Work>> dropped;  // destroyed without the lock: tasks own things
    const std::lock_guard lock(mutex_);
    closed_ = true;
    dropped.swap(queue_);
}

}  // namespace stagehopper::simulated
