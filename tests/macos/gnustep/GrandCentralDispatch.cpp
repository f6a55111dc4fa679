// As much of Grand Central Dispatch as the port uses, over threads and the main run loop.

#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "tests/macos/gnustep/Threads.h"

using stagehopper::cocoa::dispatch_function_t;

namespace {

/// Work that is done in its order, one piece at a time, on a thread as long as there is some.
class SerialWork : public std::enable_shared_from_this<SerialWork> {
public:
    void add(std::function<void()> work) {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(work));
        if (!std::exchange(isRunning_, true)) {
            stagehopper::cocoa::gnustep::runOnNewThread(
                [self = shared_from_this()] { self->runAll(); });
        }
    }

private:
    void runAll() {
        std::unique_lock lock(mutex_);
        while (!waiting_.empty()) {
            const auto work = std::move(waiting_.front());
            waiting_.pop_front();
            lock.unlock();
            work();
            lock.lock();
        }
        isRunning_ = false;
    }

    std::mutex mutex_;
    std::deque<std::function<void()>> waiting_;
    bool isRunning_ = false;
};

}  // namespace

struct dispatch_object_s {
    dispatch_object_s() = default;
    dispatch_object_s(const dispatch_object_s&) = delete;
    dispatch_object_s& operator=(const dispatch_object_s&) = delete;
    virtual ~dispatch_object_s() = default;
};

struct dispatch_queue_s : dispatch_object_s {
    using Run = void (*)(std::function<void()> work);
    explicit dispatch_queue_s(Run run) : run_(run) {}
    virtual void add(std::function<void()> work) { run_(std::move(work)); }

private:
    Run run_;
};

namespace {

struct SerialQueue : dispatch_queue_s {
    SerialQueue() : dispatch_queue_s(nullptr) {}
    void add(std::function<void()> work) override { work_->add(std::move(work)); }

private:
    /// Continues after the last reference to the queue is gone.
    std::shared_ptr<SerialWork> work_ = std::make_shared<SerialWork>();
};

}  // namespace

struct dispatch_semaphore_s : dispatch_object_s {
    explicit dispatch_semaphore_s(std::intptr_t begin) : value(begin) {}
    std::mutex mutex;
    std::condition_variable changed;
    std::intptr_t value;
};

dispatch_queue_s _dispatch_main_q(&stagehopper::cocoa::gnustep::runOnMainThread);

namespace stagehopper::cocoa {

namespace {

using Clock = std::chrono::steady_clock;

Clock::time_point timePoint(dispatch_time_t when) {
    constexpr auto practicallyForever = std::chrono::years(1);
    if (when == DISPATCH_TIME_FOREVER) return Clock::now() + practicallyForever;
    return Clock::time_point(std::chrono::nanoseconds(when));
}

/// Work that waits for its time, in the order of the times and then of its coming.
class Delays {
public:
    static Delays& shared() {
        // Never unmade: its thread does not stop before the process does.
        static auto& made = *new Delays;
        return made;
    }
    void add(Clock::time_point when, std::function<void()> work) {
        const std::scoped_lock lock(mutex_);
        waiting_.emplace(when, std::move(work));
        changed_.notify_one();
    }

private:
    Delays() {
        gnustep::runOnNewThread([this] { run(); });
    }
    void run() {
        std::unique_lock lock(mutex_);
        for (;;) {
            if (waiting_.empty()) {
                changed_.wait(lock);
            } else if (const auto when = waiting_.begin()->first; when > Clock::now()) {
                changed_.wait_until(lock, when);
            } else {
                const auto due = waiting_.extract(waiting_.begin());
                lock.unlock();
                due.mapped()();
                lock.lock();
            }
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::multimap<Clock::time_point, std::function<void()>> waiting_;
};

}  // namespace

extern "C" {

dispatch_queue_t dispatch_get_global_queue(std::intptr_t /*identifier*/, std::uintptr_t /*flags*/) {
    static dispatch_queue_s concurrent(&gnustep::runOnNewThread);
    return &concurrent;
}

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work) {
    queue->add([context, work] { work(context); });
}

dispatch_queue_t dispatch_queue_create(const char* /*label*/,
                                       dispatch_queue_attr_t /*attributes*/) {
    return new SerialQueue;
}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta) {
    const auto begin = when == DISPATCH_TIME_NOW ? Clock::now().time_since_epoch()
                                                 : std::chrono::nanoseconds(when);
    return static_cast<dispatch_time_t>((begin + std::chrono::nanoseconds(delta)).count());
}

void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context,
                      dispatch_function_t work) {
    Delays::shared().add(timePoint(when), [=] { dispatch_async_f(queue, context, work); });
}

dispatch_semaphore_t dispatch_semaphore_create(std::intptr_t value) {
    return new dispatch_semaphore_s(value);
}

std::intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore) {
    const std::scoped_lock lock(semaphore->mutex);
    ++semaphore->value;
    semaphore->changed.notify_one();
    return 0;
}

std::intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout) {
    std::unique_lock lock(semaphore->mutex);
    const bool came = semaphore->changed.wait_until(lock, timePoint(timeout),
                                                    [=] { return semaphore->value > 0; });
    if (!came) return 1;
    --semaphore->value;
    return 0;
}

void dispatch_release(dispatch_object_t object) {
    delete object;
}

}  // extern "C"

}  // namespace stagehopper::cocoa
