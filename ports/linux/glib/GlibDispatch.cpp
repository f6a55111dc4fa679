#include "ports/linux/glib/GlibDispatch.h"

#include <glib.h>

#include <chrono>
#include <utility>

#include "ports/linux/glib/ThreadSemaphore.h"
#include "ports/linux/glib/WaitingTime.h"

namespace stagehopper::linux_port {

namespace {

using Instant = TaskQueue::Instant;

constexpr platform::Duration minInterval = std::chrono::milliseconds(1);

/// One task in the queue, which may be gone before its handle is.
struct QueuedTask {
    std::weak_ptr<TaskQueue> queue;
    TaskQueue::Id id;

    void remove() const {
        if (const auto alive = queue.lock()) alive->remove(id);
    }
};

class QueuedWorkItem final : public platform::WorkItem {
public:
    explicit QueuedWorkItem(QueuedTask task) : task_(std::move(task)) {}
    ~QueuedWorkItem() override { task_.remove(); }
    QueuedWorkItem(const QueuedWorkItem&) = delete;
    QueuedWorkItem& operator=(const QueuedWorkItem&) = delete;

    void cancel() override { task_.remove(); }

private:
    QueuedTask task_;
};

class QueuedTimer final : public platform::Timer {
public:
    explicit QueuedTimer(QueuedTask task) : task_(std::move(task)) {}
    ~QueuedTimer() override { task_.remove(); }
    QueuedTimer(const QueuedTimer&) = delete;
    QueuedTimer& operator=(const QueuedTimer&) = delete;

    void invalidate() override { task_.remove(); }

private:
    QueuedTask task_;
};

/// A source that is ready at a time which any thread may set.
GSource* makeTimedSource() {
    static GSourceFuncs functions{
        nullptr, nullptr, [](GSource*, GSourceFunc callback, void* data) { return callback(data); },
        nullptr, nullptr, nullptr};
    return g_source_new(&functions, sizeof(GSource));
}

void setReadyTime(GSource* source, TaskQueue::NextDue due) {
    // GLib's monotonic time is the steady clock's, in microseconds; rounded up: never too early.
    const std::int64_t never = -1;
    g_source_set_ready_time(
        source, due ? std::chrono::ceil<std::chrono::microseconds>(due->time_since_epoch()).count()
                    : never);
}

}  // namespace

GlibDispatch::GlibDispatch() : source_(makeTimedSource()) {
    queue_ = std::make_shared<TaskQueue>(
        [source = source_.get()](TaskQueue::NextDue due) { setReadyTime(source, due); });
    g_source_set_static_name(source_.get(), "stagehopper main queue");
    g_source_set_callback(source_.get(), &GlibDispatch::runNextTask, queue_.get(), nullptr);
    g_source_attach(source_.get(), nullptr);
}

// noexcept: an exception that leaves a task ends the program with its message.
int GlibDispatch::runNextTask(void* queue) noexcept {
    static_cast<TaskQueue*>(queue)->runNext(Instant::clock::now());
    return G_SOURCE_CONTINUE;
}

void GlibDispatch::asyncMain(platform::Task task) {
    queue_->add(Instant::clock::now(), std::move(task));
}

void GlibDispatch::asyncGlobal(platform::QualityOfService /*every thread is an ordinary one*/,
                               platform::Task task) {
    workers_.post(std::move(task));
}

std::unique_ptr<platform::WorkItem> GlibDispatch::afterMain(platform::Duration delay,
                                                            platform::Task task) {
    const auto due = Instant::clock::now() + waitingTime(delay);
    return std::make_unique<QueuedWorkItem>(QueuedTask{queue_, queue_->add(due, std::move(task))});
}

std::unique_ptr<platform::Timer> GlibDispatch::repeatMain(platform::Duration interval,
                                                          platform::Task task) {
    const auto wait = waitingTime(interval, minInterval);
    return std::make_unique<QueuedTimer>(QueuedTask{
        queue_, queue_->addRepeating(Instant::clock::now() + wait, wait, std::move(task))});
}

void GlibDispatch::asyncMainAfter(platform::Duration delay, platform::Task task) {
    queue_->add(Instant::clock::now() + waitingTime(delay), std::move(task));
}

std::shared_ptr<platform::Semaphore> GlibDispatch::makeSemaphore() {
    return std::make_shared<ThreadSemaphore>();
}

void GlibDispatch::close() {
    queue_->close();
    workers_.close();
}

}  // namespace stagehopper::linux_port
